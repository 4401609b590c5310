// The text of a recording: what passed on the serial line, one line an event, after a short header.
// docs/recording-format.md describes it for other programs.
//
// Reading trusts nothing in the text: limits hold for the length of a line and of an event, and a
// wrong line is named by its number. Nothing here opens a file.
#pragma once

#include "link/serial_port.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zol::logbook {

using link::Bytes;

enum class EventKind {
    request, // bytes from the tool to the control unit
    reply,   // bytes from the control unit to the tool
    note,    // a sentence on the port: opened, closed, adapter gone
};

struct Event {
    std::int64_t at_us = 0; // since the recording began
    EventKind kind = EventKind::note;
    Bytes bytes;      // of a request or reply
    std::string text; // of a note
};

struct RecordingHeader {
    std::string program; // "zol-logbook 1.2.3"
    std::string car;     // its registration
    std::string started; // local date and time with the offset: 2026-11-22T14:10:05+01:00
    std::string device;  // the adapter's path
    std::string port;    // "COM1"
};

inline constexpr int recording_version = 1;
inline constexpr std::size_t most_event_bytes = 1024;
// Above the longest line that an event can have.
inline constexpr std::size_t longest_recording_line = 4096;
inline constexpr std::size_t largest_recording = std::size_t{256} << 20;

// With the empty line that ends it. Control characters in a value become blanks.
std::string header_text(const RecordingHeader& header);

// One line with its end. At most `most_event_bytes` bytes; a longer note is cut.
std::string event_line(const Event& event);

struct ReadResult {
    std::string wrong; // empty, or what is wrong, in which line, and what to do
    bool torn = false; // the last line has no end: the writer was killed in it; it is left out
    std::size_t events = 0;
};

// Gives each event to `take`, in order, until the end or the first wrong line. `header` is filled
// before the first event.
ReadResult read_recording_text(std::string_view text, RecordingHeader& header,
                               const std::function<void(const Event&)>& take);

} // namespace zol::logbook
