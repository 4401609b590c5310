// Writes the recording in a process of its own, so that a slow or full disk never delays the line,
// and so that somebody is left after a kill of the program: that process then writes what it was
// still given, and removes the port's link.
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

    // Forks. From now on the other process writes the file, and holds the claim until after this
    // program's end. Before the adapter is opened: the fork must not hold it. An empty text, or why
    // not.
    std::string start(RecordingFile& file, PortClaim& claim);
    // Neither waits, whatever the disk or the terminal does. Events that find no room are counted,
    // and a note in the recording says how many are missing.
    void put(const Event& event);
    void say(const std::string& text);       // on standard output
    void report(const std::string& problem); // on standard error
    // To be called when a child of the program has ended.
    void child_ended();
    // Lets the other process finish, for a second at most.
    void end();

  private:
    bool send(std::string_view lines) const;

    pid_t process_ = -1;
    int pipe_ = -1;
    std::uint64_t lost_ = 0;
};

} // namespace zol::logbook
