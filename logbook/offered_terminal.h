// The pseudo-terminal that the tool opens in place of the adapter.
#pragma once

#include <string>

namespace zol::logbook {

class OfferedTerminal {
  public:
    OfferedTerminal() = default;
    OfferedTerminal(const OfferedTerminal&) = delete;
    OfferedTerminal& operator=(const OfferedTerminal&) = delete;
    ~OfferedTerminal() { close(); }

    // An empty text, or why not.
    std::string open();
    // Whoever holds the other end finds it hung up, as with an adapter that is pulled.
    void close();

    int descriptor() const { return master_; } // to read and write; -1 while it is closed
    int watch() const { return watch_; }       // readable when somebody opens or closes it
    const std::string& path() const { return path_; }

    // Reads what `watch` reports. True if nobody had the terminal open for a moment: what was not
    // read until then is thrown away, because a real port keeps nothing for the next one who opens
    // it.
    bool follow_users();
    // Somebody has sent bytes, and so has it open, even if the system merged the events of two
    // who came at once.
    void somebody_sent();
    // Whether somebody has it open; true where the system cannot tell.
    bool is_used() const { return watch_ < 0 || users_ > 0; }
    // "9600,n,8,1", as its user has set it; empty if the system does not say.
    std::string line_settings() const;

  private:
    int master_ = -1;
    int own_end_ = -1; // held, so that the terminal outlives its users
    int watch_ = -1;
    int users_ = 0;
    std::string path_;
};

} // namespace zol::logbook
