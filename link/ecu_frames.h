// The two request frames and the reply conventions of the control unit, and the exchanges that the
// whole tool is made of: send, wait a fixed time, take what has arrived.
#pragma once

#include "link/serial_port.h"

#include <optional>
#include <string>

namespace zol::link {

// Command codes of the 5-byte frames. No others exist.
enum class Command : std::uint8_t {
    read_image = 1,
    write_parameter = 2, // only in the 9-byte frame
    status = 3,
    to_petrol = 4,
    reset = 5,
    presence = 6,
    version = 7,
    eobd_faults = 15,
    eobd_live = 16,
    terminal = 20,
    download = 21,
    to_gas = 22,
};

// 80, 67, 0, 5, code: "P", "C", the frame's length as a word, the command.
Bytes command_frame(Command command);

// 80, 67, 0, 9, 2, number, value: both as words, high byte first, after rounding to the nearest
// integer with ties to even. Nothing if one of them is outside 0 to 65535: it has no byte form.
std::optional<Bytes> write_frame(double number, double value);

// One read of the port: whatever had arrived by then. Positions count from 1; bytes 1 to 4 are the
// frame head that nobody looks at, byte 5 repeats the command, data begins at 6.
class Reply {
  public:
    Reply() = default;
    explicit Reply(Bytes bytes) : bytes_(std::move(bytes)) {}

    std::size_t length() const { return bytes_.size(); }
    bool empty() const { return bytes_.empty(); }
    // Nothing behind the end of what arrived.
    std::optional<int> byte(std::size_t position) const;
    // The bytes at `position` and after it, high byte first.
    std::optional<int> word(std::size_t position) const;
    bool echoes(Command command) const { return byte(5) == static_cast<int>(command); }

  private:
    Bytes bytes_;
};

// A field behind the end of a reply gives no value: the destination keeps what it holds.
template <typename T>
void take(const std::optional<int>& field, T& destination) {
    if (field) destination = static_cast<T>(*field);
}

// Sends the frame and nothing more. False if the port cannot take it. This and the two below send
// nothing once `program_ends` is set.
bool send_command(Command command);
// Sends the frame with no wait behind it, for handlers with a wait of their own. False if there is
// no frame for these values or the port cannot take it.
bool send_parameter(double number, double value);
// Sends the frame, then waits 300 ms. A value that has no frame fails at once, with no wait.
bool write_parameter(double number, double value);
// Takes every byte now in the receive buffer; empty also on a fault of the port.
Reply read_reply();

// Sets number and line settings and opens the port; it does not close it first. Nothing on
// success, else the system's text for why not.
std::optional<std::string> open_port(double port_number);
void close_port();
bool port_is_open();

// The wait of the whole program: the main window's one-shot timer, pumping events until it is off.
void wait_ms(int milliseconds);

// Once the polling is stopped, a telegram under way ends within this time; the line is then free.
constexpr int telegram_end_ms = 400;
// What the unit is given to take a write or a command, where its handler has no time of its own.
constexpr int send_settle_ms = 400;

} // namespace zol::link
