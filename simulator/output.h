// Lines on standard output, standard error or in the log, written without ever blocking the
// program.
//
// Lines are queued and a thread for each stream writes them, so a full pipe, a FIFO without a
// reader or a slow disk delays only these lines. Lines that cannot be written are reported.
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

    // The longest queue in bytes; further lines are dropped.
    static constexpr std::size_t most_waiting = 4 * 1024 * 1024;

    // `name` is used at the beginning of sentences, such as "Standard output". `report` is called
    // once for each kind of failure, on any thread.
    Output(std::string name, Report report);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    // start() and open() return an empty text, or a sentence with the error and what to do.
    //
    // Writes to a descriptor, which the caller still owns.
    std::string start(int fd);
    // Writes to a file, which is emptied first, or to a FIFO, whose reader may come later.
    std::string open(const std::string& path);
    bool is_open() const { return open_; }

    // Queues the line with a line end. No effect while the stream is not open.
    void put(std::string_view line);
    // Waits until all lines are written, at most until `latest`, and reports how many were not.
    void finish(std::chrono::steady_clock::time_point latest);

  private:
    struct Stream;
    std::string start_thread();

    // Shared with the thread, which may be blocked in a write for ever.
    std::shared_ptr<Stream> stream_;
    bool open_ = false;
};

} // namespace sim
