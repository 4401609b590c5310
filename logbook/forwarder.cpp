#include "logbook/forwarder.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <initializer_list>
#include <poll.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

namespace zol::logbook {
namespace {

constexpr int retry_ms = 300; // as often as the tool asks its unit

std::int64_t clock_us() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000LL + time.tv_nsec / 1000;
}

// Signals become events, so that the link is removed whatever ends the program. Nothing that the
// keyboard does may stop it: the tool would wait for its line.
int take_signals() {
    for (const int ignored : {SIGPIPE, SIGTTIN, SIGTTOU, SIGTSTP})
        std::signal(ignored, SIG_IGN);
    sigset_t set;
    sigemptyset(&set);
    for (const int taken : {SIGINT, SIGTERM, SIGHUP, SIGCHLD})
        sigaddset(&set, taken);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return ::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
}

// Other programs on a busy machine must not hold up the line. The loop hardly uses the processor;
// where the system does not allow it, it runs as they do.
void run_before_other_programs() {
    sched_param lowest_of_real_time{};
    lowest_of_real_time.sched_priority = 1;
    if (::sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &lowest_of_real_time) != 0)
        ::setpriority(PRIO_PROCESS, 0, -10);
}

} // namespace

Forwarder::Forwarder(std::filesystem::path device, PortClaim& claim, Recorder& recorder)
    : device_(std::move(device)), claim_(claim), recorder_(recorder), start_us_(clock_us()),
      signals_(take_signals()) {}

Forwarder::~Forwarder() {
    disconnect();
    if (signals_ >= 0) ::close(signals_);
}

std::int64_t Forwarder::now_us() const { return clock_us() - start_us_; }

void Forwarder::note(const std::string& text) {
    recorder_.put({now_us(), EventKind::note, {}, text});
}

std::string Forwarder::run() {
    run_before_other_programs();
    std::string wrong = connect();
    // A program that uses the adapter now may be the tool. It would lose its adapter to this
    // program as soon as it was pulled and put back.
    if (!wrong.empty() && (adapter_.is_busy() || adapter_.is_no_port())) return wrong;
    if (!wrong.empty()) recorder_.report(problem_ = wrong);
    while (!ended_)
        wait();
    disconnect();
    note("end");
    return {};
}

std::string Forwarder::connect() {
    std::string wrong = adapter_.open(device_);
    if (wrong.empty()) wrong = terminal_.open();
    if (wrong.empty()) wrong = claim_.make_link(terminal_.path());
    if (!wrong.empty()) {
        terminal_.close();
        adapter_.close();
        return wrong;
    }
    problem_.clear();
    note("adapter opened " + device_.string());
    recorder_.say(claim_.link().string() + " is " + device_.string() + " now.");
    return {};
}

void Forwarder::disconnect() {
    if (adapter_.descriptor() < 0) return;
    claim_.remove_link();
    terminal_.close();
    adapter_.close();
    requests_ = replies_ = {};
    settings_.clear();
    gone_ = false;
}

void Forwarder::try_to_connect() {
    std::string wrong = connect();
    if (wrong.empty() || wrong == problem_) return;
    recorder_.report(problem_ = wrong);
}

void Forwarder::write_pending(int destination, Pending& pending) {
    while (!pending.empty()) {
        const ssize_t put =
            ::write(destination, pending.bytes.data() + pending.from, pending.to - pending.from);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0 && errno != EAGAIN) gone_ = true;
        if (put <= 0) return; // full for now
        pending.from += static_cast<std::size_t>(put);
    }
    pending.from = pending.to = 0;
}

void Forwarder::pass(int source, int destination, Pending& pending, EventKind kind) {
    const ssize_t got = ::read(source, pending.bytes.data(), pending.bytes.size());
    if (got <= 0) return;
    const std::int64_t at_us = now_us();
    const Event event{at_us, kind, Bytes(pending.bytes.data(), pending.bytes.data() + got), {}};
    pending.from = 0;
    pending.to = static_cast<std::size_t>(got);
    // Replies to a port that nobody has open are lost, as on the adapter itself.
    if (kind == EventKind::reply && !terminal_.is_used())
        pending.from = pending.to = 0;
    else
        write_pending(destination, pending);
    if (kind == EventKind::request) {
        terminal_.somebody_sent();
        follow_settings(at_us);
    }
    recorder_.put(event);
}

void Forwarder::follow_users() {
    const bool before = terminal_.is_used();
    const bool left = terminal_.follow_users();
    const bool now = terminal_.is_used();
    if (left) {
        replies_ = {};
        note("port closed");
    }
    if (now && (left || !before)) note("port opened");
    settings_.clear();
}

void Forwarder::follow_settings(std::int64_t at_us) {
    std::string settings = terminal_.line_settings();
    if (settings.empty() || settings == settings_) return;
    settings_ = std::move(settings);
    recorder_.put({at_us, EventKind::note, {}, "settings " + settings_});
}

bool Forwarder::signalled() {
    signalfd_siginfo signal{};
    while (::read(signals_, &signal, sizeof signal) == sizeof signal) {
        if (signal.ssi_signo == SIGCHLD)
            recorder_.child_ended();
        else
            ended_ = true;
    }
    return ended_;
}

void Forwarder::wait() {
    const auto side = [](const Pending& to_be_read, const Pending& to_be_written) {
        return static_cast<short>((to_be_read.empty() ? POLLIN : 0) |
                                  (to_be_written.empty() ? 0 : POLLOUT));
    };
    const bool connected = adapter_.descriptor() >= 0;
    std::array<pollfd, 4> watched{{{signals_, POLLIN, 0},
                                   {terminal_.watch(), POLLIN, 0},
                                   {terminal_.descriptor(), side(requests_, replies_), 0},
                                   {adapter_.descriptor(), side(replies_, requests_), 0}}};
    const int ready = ::poll(watched.data(), watched.size(), connected ? -1 : retry_ms);
    if (ready <= 0) {
        if (ready == 0) try_to_connect();
        return;
    }
    if (watched[0].revents != 0 && signalled()) return;
    if (watched[1].revents != 0) follow_users();
    if ((watched[2].revents & POLLOUT) != 0) write_pending(terminal_.descriptor(), replies_);
    if ((watched[3].revents & POLLOUT) != 0) write_pending(adapter_.descriptor(), requests_);
    if ((watched[2].revents & POLLIN) != 0)
        pass(terminal_.descriptor(), adapter_.descriptor(), requests_, EventKind::request);
    if ((watched[3].revents & POLLIN) != 0)
        pass(adapter_.descriptor(), terminal_.descriptor(), replies_, EventKind::reply);
    if ((watched[3].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) gone_ = true;
    if (!gone_) return;
    note("adapter gone");
    recorder_.report(problem_ = device_.string() + " is gone; the port is back when it is.");
    disconnect();
}

} // namespace zol::logbook
