#include "link/ecu_frames.h"

#include "app/app_state.h"
#include "app/numbers.h"
#include "view/timers.h"
#include "view/windows/form1.h"

#include <cmath>

namespace zol::link {
namespace {

constexpr std::uint8_t head_p = 80, head_c = 67;

// Nothing is sent after the program's end has begun, whichever handler is still running.
bool send(const Bytes& frame) { return !app::state.program_ends && serial_port().write(frame); }

// The two bytes of the rounded number. Nothing if it is outside 0 to 65535.
std::optional<std::pair<std::uint8_t, std::uint8_t>> word_bytes(double number) {
    const double rounded = app::round_half_even(number);
    if (!(rounded >= 0 && rounded <= 65535)) return std::nullopt;
    const auto word = static_cast<unsigned>(rounded);
    return std::pair{static_cast<std::uint8_t>(word / 256), static_cast<std::uint8_t>(word % 256)};
}

} // namespace

Bytes command_frame(Command command) {
    return {head_p, head_c, 0, 5, static_cast<std::uint8_t>(command)};
}

std::optional<Bytes> write_frame(double number, double value) {
    const auto n = word_bytes(number);
    const auto v = word_bytes(value);
    if (!n || !v) return std::nullopt;
    const auto code = static_cast<std::uint8_t>(Command::write_parameter);
    return Bytes{head_p, head_c, 0, 9, code, n->first, n->second, v->first, v->second};
}

std::optional<int> Reply::byte(std::size_t position) const {
    if (position < 1 || position > bytes_.size()) return std::nullopt;
    return bytes_[position - 1];
}

std::optional<int> Reply::word(std::size_t position) const {
    const auto high = byte(position);
    const auto low = byte(position + 1);
    if (!high || !low) return std::nullopt;
    return *high * 256 + *low;
}

bool send_command(Command command) { return send(command_frame(command)); }

bool send_parameter(double number, double value) {
    const auto frame = write_frame(number, value);
    return frame && send(*frame);
}

bool write_parameter(double number, double value) {
    const auto frame = write_frame(number, value);
    if (!frame) return false;
    const bool sent = send(*frame);
    wait_ms(300);
    return sent;
}

Reply read_reply() {
    auto bytes = serial_port().read_all();
    return bytes ? Reply(std::move(*bytes)) : Reply();
}

std::optional<std::string> open_port(double port_number) {
    SerialPort& port = serial_port();
    port.set_number(static_cast<int>(app::round_half_even(port_number)));
    port.set_line_settings("9600,n,8,1");
    return port.open();
}

void close_port() { serial_port().close(); }
bool port_is_open() { return serial_port().is_open(); }

void wait_ms(int milliseconds) { view::wait_on(form1::Timer2, milliseconds); }

} // namespace zol::link
