// Writes the recording in a second process. So a slow or full disk never delays the line; and if
// this program is killed, the second process writes what it has received and removes the port's
// link.
#pragma once

#include "logbook/port_claim.h"
#include "logbook/recording_file.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace zol::logbook {

class Recorder {
  public:
    Recorder() = default;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() { end(); }

    // Forks: from now on the second process writes the file, and keeps the claim until this program
    // has ended. Call this before the adapter is opened, because the second process must not
    // inherit it. Returns an empty text, or the error.
    std::string start(RecordingFile& file, PortClaim& claim);
    // Records an event. Never blocks: events that do not fit into the pipe are counted, and a note
    // in the recording gives their number.
    void put(const Event& event);
    // Print through the second process; they do not block, either.
    void say(const std::string& text);       // on standard output
    void report(const std::string& problem); // on standard error
    // Call this when a child process has ended.
    void child_ended();
    // Waits for the second process to finish, at most a second. True if all events, or notes of
    // their number, are in the file.
    bool end();

  private:
    bool send(std::string_view lines) const;

    pid_t process_ = -1;
    int pipe_ = -1;
    std::uint64_t lost_ = 0;
    bool whole_ = true;
};

} // namespace zol::logbook
