// Lines on standard output, on standard error or in the log, written without ever holding the
// program up.
//
// Lines are queued, and a thread of the stream's own writes them: a pipe that is full, a FIFO that
// nobody reads or a slow disk delays these lines and nothing else. What cannot be written is
// reported, never lost in silence.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace sim {

class Output {
  public:
    using Report = std::function<void(const std::string&)>;

    // More than this waiting to be written, and further lines are left out.
    static constexpr std::size_t most_waiting = 4 * 1024 * 1024;

    // `name` begins a sentence, as in "Standard output". `report` gets one sentence for each kind
    // of trouble, on any thread.
    Output(std::string name, Report report);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    // Writes to a descriptor that stays the caller's.
    // Each returns an empty text, or a sentence with the reason and the remedy.
    std::string start(int fd);
    // Writes to a file, which loses what it held, or to a FIFO, which may get its reader later.
    std::string open(const std::string& path);
    bool is_open() const { return open_; }

    // Adds a line end. Does nothing while it is not open.
    void put(std::string_view line);
    // Waits until all is written, at most until `latest`, and reports how many lines were not.
    void finish(std::chrono::steady_clock::time_point latest);

  private:
    struct Stream;
    std::string start_thread();

    // Shared with the thread, which may be held up in a write for ever.
    std::shared_ptr<Stream> stream_;
    bool open_ = false;
};

} // namespace sim
