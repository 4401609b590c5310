// The text format of a recording: a short header, then one line for each event on the serial line.
// docs/recording-format.md describes it for other programs.
//
// Reading accepts any input: the length of lines and events is limited, and an error names its
// line. Nothing here opens a file.
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
    note,    // a sentence about the port: opened, closed, adapter pulled
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
// More than the longest possible line of an event.
inline constexpr std::size_t longest_recording_line = 4096;
inline constexpr std::size_t largest_recording = std::size_t{256} << 20;

// Whether a control character is in the text, which is UTF-8; a line feed is one.
bool has_control_character(std::string_view text);

// The text in one line: blanks for its control characters, cut after app::longest_line bytes.
std::string printable(std::string_view text);

// The header with the empty line at its end. Control characters in a value become blanks.
std::string header_text(const RecordingHeader& header);

// The line of an event, with its line end. The event has at most `most_event_bytes` bytes; a longer
// note is cut.
std::string event_line(const Event& event);

struct ReadResult {
    std::string wrong; // empty, or the error, its line and the remedy
    bool torn = false; // the last line is incomplete, because the writer was killed; it is ignored
    std::size_t events = 0;
};

// Calls `take` for each event, in order, until the end or the first wrong line. `header` is set
// before the first event.
ReadResult read_recording_text(std::string_view text, RecordingHeader& header,
                               const std::function<void(const Event&)>& take);

} // namespace zol::logbook
