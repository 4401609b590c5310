#include "simulator/output.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace sim {

struct Output::Stream {
    std::string name;
    std::string fifo; // opened by the thread; empty: `fd` is open already
    int fd = -1;
    bool owns_fd = false;

    std::mutex mutex; // guards all members below
    std::condition_variable changed;
    Report report; // only the owner of the stream changes it
    std::string queued;
    std::size_t waiting = 0;  // lines queued and not yet written
    std::size_t left_out = 0; // lines dropped since the last one queued
    bool left_out_ever = false;
    bool closing = false;
    bool failed = false;
    bool done = false;

    void fail(int error);
    bool write_all(std::string_view text);
    void write_until_closed();
    void run();
};

namespace {

std::size_t lines_in(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::string gap_line(std::size_t lines) {
    return "... " + std::to_string(lines) + " lines are missing here: the reader was too slow\n";
}

} // namespace

void Output::Stream::fail(int error) {
    // Locked, because the owner may reset `report` at the same time.
    const std::lock_guard lock(mutex);
    failed = true;
    queued.clear();
    waiting = left_out = 0;
    if (report)
        report(name + " cannot be written any more: " + std::strerror(error) +
               "; the lines that follow are lost. Remove the cause and start the unit again.");
}

// Writes pieces of whole lines that a pipe takes atomically, so that lines of other writers are not
// mixed in.
bool Output::Stream::write_all(std::string_view text) {
    constexpr std::size_t undivided = 4096;
    while (!text.empty()) {
        std::string_view piece = text.substr(0, undivided);
        if (const auto end = piece.rfind('\n'); end != std::string_view::npos)
            piece = piece.substr(0, end + 1);
        const ssize_t put = ::write(fd, piece.data(), piece.size());
        if (put < 0 && errno == EINTR) continue;
        // Another process may have made the descriptor non-blocking.
        if (put < 0 && errno == EAGAIN) {
            pollfd watched{fd, POLLOUT, 0};
            ::poll(&watched, 1, -1);
            continue;
        }
        if (put < 0) {
            fail(errno);
            return false;
        }
        const std::string_view written = text.substr(0, static_cast<std::size_t>(put));
        text.remove_prefix(written.size());
        const std::lock_guard lock(mutex);
        waiting -= lines_in(written);
    }
    return true;
}

void Output::Stream::write_until_closed() {
    for (;;) {
        std::string text;
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return !queued.empty() || closing; });
            if (queued.empty()) return;
            text.swap(queued);
        }
        if (!write_all(text)) return;
    }
}

void Output::Stream::run() {
    if (!fifo.empty()) fd = ::open(fifo.c_str(), O_WRONLY | O_CLOEXEC); // waits for a reader
    if (fd < 0)
        fail(errno);
    else
        write_until_closed();
    // Some file systems report only now that the disk is full.
    if (fd >= 0 && owns_fd && ::close(fd) != 0 && !failed) fail(errno);
    const std::lock_guard lock(mutex);
    done = true;
    changed.notify_all();
}

Output::Output(std::string name, Report report) : stream_(std::make_shared<Stream>()) {
    stream_->name = std::move(name);
    stream_->report = std::move(report);
}

Output::~Output() {
    const std::lock_guard lock(stream_->mutex);
    stream_->report = nullptr;
    stream_->closing = true;
    stream_->changed.notify_all();
}

std::string Output::start(int fd) {
    stream_->fd = fd;
    return start_thread();
}

std::string Output::open(const std::string& path) {
    // Non-blocking: open() must not wait for the reader of a FIFO or for a terminal.
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int fd = ::open(path.c_str(), flags, 0666);
    const int error = errno;
    struct stat found {};
    if (fd >= 0) {
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    } else if (error == ENXIO && ::stat(path.c_str(), &found) == 0 && S_ISFIFO(found.st_mode)) {
        stream_->fifo = path;
    } else {
        return stream_->name + " cannot be written: " + std::strerror(error) +
               "; name a file to which you may write.";
    }
    stream_->fd = fd;
    stream_->owns_fd = true;
    return start_thread();
}

std::string Output::start_thread() {
    // The thread inherits this mask: signals are handled by the program, and a reader that has gone
    // gives a write error.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::string wrong;
    try {
        std::thread([stream = stream_] { stream->run(); }).detach();
    } catch (const std::system_error& error) {
        wrong =
            stream_->name + " cannot be written: " + error.what() + "; close some other programs.";
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    open_ = wrong.empty();
    return wrong;
}

void Output::put(std::string_view line) {
    if (!open_) return;
    bool first_left_out = false;
    {
        Stream& stream = *stream_;
        const std::lock_guard lock(stream.mutex);
        if (stream.failed) return;
        if (stream.queued.size() + line.size() > most_waiting) {
            ++stream.left_out;
            first_left_out = !std::exchange(stream.left_out_ever, true);
        } else {
            std::string text;
            if (stream.left_out > 0) text = gap_line(std::exchange(stream.left_out, 0));
            text.append(line).append("\n");
            stream.waiting += lines_in(text);
            stream.queued += text;
            stream.changed.notify_all();
        }
    }
    if (first_left_out && stream_->report)
        stream_->report(stream_->name +
                        " is read too slowly, so lines are dropped; a line in it says how many "
                        "and where. Read it faster, or write the log to a file.");
}

void Output::finish(std::chrono::steady_clock::time_point latest) {
    if (!open_) return;
    std::size_t missing = 0;
    {
        std::unique_lock lock(stream_->mutex);
        stream_->closing = true;
        stream_->changed.notify_all();
        stream_->changed.wait_until(lock, latest, [this] { return stream_->done; });
        missing = stream_->waiting + stream_->left_out;
    }
    open_ = false;
    if (missing > 0 && stream_->report)
        stream_->report(stream_->name + " ends " + std::to_string(missing) +
                        " lines early: they were not read.");
}

} // namespace sim
