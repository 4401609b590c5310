#include "logbook/recorder.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::logbook {
namespace {

// A line for the screen begins with one of these; an event begins with a digit.
constexpr char to_output = 'o', to_error = 'e';
constexpr int pipe_bytes = 1 << 20; // more than the line brings in 8 minutes

// A stopped terminal or a full pipe must not hold up the recording: the text is left out then.
void show(int descriptor, std::string text) {
    pollfd ready{descriptor, POLLOUT, 0};
    text += '\n';
    if (::poll(&ready, 1, 0) == 1 && ::write(descriptor, text.data(), text.size()) < 0) return;
}

void complain_now(const std::string& text) { show(STDERR_FILENO, "zol-logbook: " + text); }

// The writing process.
struct Writer {
    RecordingFile& file;
    std::string held; // the beginning of a line
    bool failed = false;

    void take(std::string_view piece) {
        held += piece;
        std::string events;
        std::size_t from = 0;
        for (std::size_t end = 0; (end = held.find('\n', from)) != held.npos; from = end + 1) {
            const std::string_view line = std::string_view(held).substr(from, end + 1 - from);
            if (line[0] == to_output || line[0] == to_error) {
                const std::string text(line.substr(1, line.size() - 2));
                line[0] == to_output ? show(STDOUT_FILENO, text) : complain_now(text);
            } else if (line[0] >= '0' && line[0] <= '9') {
                events += line;
            }
        }
        held.erase(0, from);
        if (events.empty() || !file.is_open()) return;
        const std::string wrong = file.add(events);
        failed = !wrong.empty();
        if (failed) complain_now("Recording has stopped: " + wrong + " The line goes on.");
    }
};

[[noreturn]] void write_until_the_end(int pipe, RecordingFile& file, PortClaim& claim) {
    ::setsid(); // an interrupt from the keyboard is for the program
    for (const int ignored : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGTTOU})
        std::signal(ignored, SIG_IGN);
    Writer writer{file, {}, false};
    std::array<char, 65536> piece{};
    for (;;) {
        const ssize_t got = ::read(pipe, piece.data(), piece.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        writer.take({piece.data(), static_cast<std::size_t>(got)});
    }
    claim.end();
    ::_exit(writer.failed ? 1 : 0);
}

} // namespace

std::string Recorder::start(RecordingFile& file, PortClaim& claim) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::string("No pipe can be made: ") + std::strerror(errno) + ".";
    process_ = ::fork();
    if (process_ == 0) {
        ::close(ends[1]);
        write_until_the_end(ends[0], file, claim);
    }
    ::close(ends[0]);
    pipe_ = ends[1];
    if (process_ < 0) {
        const int why = errno;
        end();
        return std::string("No second process can be started: ") + std::strerror(why) + ".";
    }
    file.close();
    ::fcntl(pipe_, F_SETFL, O_NONBLOCK);
    ::fcntl(pipe_, F_SETPIPE_SZ, pipe_bytes); // the usual size does, too
    return {};
}

// Whole or not at all: it is shorter than what the system writes into a pipe at once.
bool Recorder::send(std::string_view line) const {
    return pipe_ >= 0 &&
           ::write(pipe_, line.data(), line.size()) == static_cast<ssize_t>(line.size());
}

void Recorder::put(const Event& event) {
    if (lost_ > 0) {
        const Event note{
            event.at_us, EventKind::note, {}, "lost " + std::to_string(lost_) + " events"};
        if (send(event_line(note))) lost_ = 0;
    }
    if (lost_ > 0 || !send(event_line(event))) ++lost_;
}

void Recorder::say(const std::string& text) { send(to_output + printable(text) + "\n"); }
void Recorder::report(const std::string& problem) { send(to_error + printable(problem) + "\n"); }

void Recorder::child_ended() {
    if (process_ < 0 || ::waitpid(process_, nullptr, WNOHANG) != process_) return;
    process_ = -1;
    whole_ = false;
    ::close(pipe_);
    pipe_ = -1;
    complain_now("Recording has stopped: its process was ended. The line goes on.");
}

bool Recorder::end() {
    if (lost_ > 0) whole_ = false; // and no note in the recording says so
    if (pipe_ >= 0) ::close(pipe_);
    pipe_ = -1;
    constexpr int most_ms = 1000;
    for (int ms = 0; process_ > 0 && ms < most_ms; ++ms) {
        int status = 0;
        const pid_t ended = ::waitpid(process_, &status, WNOHANG);
        if (ended == process_ && status != 0) whole_ = false;
        if (ended != 0) process_ = -1;
        if (process_ > 0) ::usleep(1000);
    }
    if (process_ > 0) {
        whole_ = false;
        complain_now("The disk is slow: the end of the recording is not written yet.");
    }
    process_ = -1;
    return whole_;
}

} // namespace zol::logbook
