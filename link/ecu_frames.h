// The request frames and replies of the control unit, and the exchanges with it: send, wait a fixed
// time, take what has arrived.
//
// Requests and replies have no checksum and no sequence number. Only the wait before a read assigns
// a reply to its request. A write has no reply. Nothing here retries.
#pragma once

#include "link/serial_port.h"

#include <optional>
#include <string>

namespace zol::link {

// Command codes. The unit has no others.
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

// 80, 67, 0, 5, code: "P", "C", the frame's length as a word, the command code.
Bytes command_frame(Command command);

// 80, 67, 0, 9, 2, number, value. Number and value are words, high byte first, rounded to the
// nearest integer with ties to even. Nothing if one of them is then outside 0 to 65535.
std::optional<Bytes> write_frame(double number, double value);

// A reply: everything that had arrived at the time of one read. Positions count from 1. Bytes 1 to
// 4 are "P", "C" and the length, which are not checked; byte 5 repeats the command (the echo); the
// data begin at 6.
class Reply {
  public:
    Reply() = default;
    explicit Reply(Bytes bytes) : bytes_(std::move(bytes)) {}

    std::size_t length() const { return bytes_.size(); }
    bool empty() const { return bytes_.empty(); }
    // Nothing if the reply is shorter.
    std::optional<int> byte(std::size_t position) const;
    // The word at `position` and `position` + 1, high byte first. Nothing if the reply is shorter.
    std::optional<int> word(std::size_t position) const;
    bool echoes(Command command) const { return byte(5) == static_cast<int>(command); }

  private:
    Bytes bytes_;
};

// Copies a field into its destination. A field that the reply does not have leaves the destination
// unchanged.
template <typename T>
void take(const std::optional<int>& field, T& destination) {
    if (field) destination = static_cast<T>(*field);
}

// Sends the frame and does not wait. False if the port is closed or fails. This function and the
// next two send nothing once `program_ends` is set.
bool send_command(Command command);
// Sends the frame and does not wait: for handlers that wait themselves. False also if number or
// value has no frame.
bool send_parameter(double number, double value);
// Sends the frame, then waits 300 ms, also if the port fails. If number or value has no frame,
// returns false at once.
bool write_parameter(double number, double value);
// Takes every byte from the receive buffer. Empty if nothing has arrived or the port fails.
Reply read_reply();

// Sets number and line settings and opens the port; fails if it is open. Nothing on success, else
// the error text.
std::optional<std::string> open_port(double port_number);
void close_port();
bool port_is_open();

// The wait that all modules use: the main window's one-shot timer, pumping events until it is off.
// Nested waits share the timer, see view/timers.h.
void wait_ms(int milliseconds);

// After polling was stopped, the reply to a pending request arrives within this time; the line is
// then free.
constexpr int telegram_end_ms = 400;
// The time given to the unit after a write or a command, where the handler has no time of its own.
constexpr int send_settle_ms = 400;

} // namespace zol::link
