// The pseudo-terminal that the tool opens instead of the adapter. It tells when the tool opens and
// closes it, and what line settings the tool has chosen.
#pragma once

#include <string>

namespace zol::logbook {

class OfferedTerminal {
  public:
    OfferedTerminal() = default;
    OfferedTerminal(const OfferedTerminal&) = delete;
    OfferedTerminal& operator=(const OfferedTerminal&) = delete;
    ~OfferedTerminal() { close(); }

    // Returns an empty text, or the error.
    std::string open();
    // A program that has the other end open gets a hang-up, as with a pulled adapter.
    void close();

    int descriptor() const { return master_; } // for reading and writing; -1 while closed
    int watch() const { return watch_; }       // readable when a program opens or closes it
    const std::string& path() const { return path_; }

    // Reads the events of `watch`. Returns true if no program had the terminal open for a moment.
    // Unread bytes are discarded then, as in a real port that is closed.
    bool follow_users();
    // Call this when bytes arrived: then a program has the terminal open, even if the system has
    // merged the events of a close and an open.
    void somebody_sent();
    // Whether a program has it open; true if the system cannot tell.
    bool is_used() const { return watch_ < 0 || users_ > 0; }
    // The line settings that the program has made, such as "9600,n,8,1"; empty if unknown.
    std::string line_settings() const;

  private:
    int master_ = -1;
    int own_end_ = -1; // kept open, so that the terminal remains when the tool closes it
    int watch_ = -1;
    int users_ = 0;
    std::string path_;
};

} // namespace zol::logbook
