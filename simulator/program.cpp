#include "simulator/program.h"

#include "simulator/port_link.h"
#include "simulator/wire_log.h"
#include "simulator/words.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace sim {
namespace {

constexpr std::size_t longest_typed_line = 4096;
// How long the end of the program waits for lines that are not yet written.
constexpr auto flush_timeout = std::chrono::seconds(1);

std::int64_t clock_us() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000LL + time.tv_nsec / 1000;
}

// For errors before the output streams are started.
void report_early_error(const std::string& text) {
    std::fputs(("control-unit: " + text + "\n").c_str(), stderr);
}

// If the parent process has closed standard descriptors, the device would otherwise get one of
// their numbers.
void keep_standard_descriptors() {
    int fd = 0;
    while (fd >= 0 && fd < 3)
        fd = open("/dev/null", O_RDWR);
    if (fd >= 3) close(fd);
}

} // namespace

Program::Program(const Arguments& arguments)
    : arguments_(arguments),
      simulation_(arguments.unit, arguments.line, arguments.replay.empty() ? nullptr : &replay_),
      error_("Standard error", nullptr),
      out_("Standard output", [this](const std::string& text) { report_error(text); }),
      log_("The log " + arguments.log, [this](const std::string& text) { report_error(text); }) {}

Program::~Program() {
    disconnect();
    finish_outputs();
    if (signals_ >= 0) close(signals_);
}

void Program::print(const std::string& text) {
    if (!text.empty()) out_.put(text);
}

void Program::report_error(const std::string& text) { error_.put("control-unit: " + text); }

void Program::finish_outputs() {
    const auto latest = std::chrono::steady_clock::now() + flush_timeout;
    log_.finish(latest);
    out_.finish(latest);
    // Last, because the two above may report errors to it.
    error_.finish(std::chrono::steady_clock::now() + flush_timeout);
}

std::optional<int> Program::load() {
    if (!arguments_.scenario.empty()) {
        scenario_ = load_scenario(arguments_.scenario);
        for (const std::string& wrong : scenario_.wrong)
            report_early_error(wrong);
        if (!scenario_.wrong.empty()) return 2;
    }
    if (!replays()) return std::nullopt;
    Recording recording = load_recording(arguments_.replay);
    if (!recording.wrong.empty()) {
        report_early_error(recording.wrong);
        return 2;
    }
    replay_.play(std::move(recording));
    replay_.set_sink([this](const Frame& request, bool recorded) { replayed(request, recorded); });
    return std::nullopt;
}

void Program::replayed(const Frame& request, bool recorded) {
    const double seconds = static_cast<double>(request.at_us - start_us_) / 1e6;
    if (log_.is_open()) log_.put(log_line(seconds, "tool", describe_request(request)));
    const Recording::Key key{request.command, request.number, request.value};
    if (recorded || !reported_.insert(key).second) return;
    print(log_line(seconds, "tool", describe_request(request)) + ": never recorded, no answer");
}

int Program::run() {
    if (const auto status = load()) return *status;
    if (!begin()) return 1;
    print("seed " + std::to_string(arguments_.unit.seed) + ", line " +
          describe(simulation_.line.options()));
    while (!ended_) {
        run_scenario();
        if (ended_) break;
        exchange();
        follow_cable(); // the line may just have disconnected the cable
        wait();
    }
    return 0;
}

bool Program::begin() {
    // Signals are read as events, so that the link is removed whatever ends the program. SIGTTIN is
    // ignored so that reading from the terminal in the background gives an error and does not stop
    // the process.
    for (const int ignored : {SIGPIPE, SIGTTIN, SIGTTOU})
        std::signal(ignored, SIG_IGN);
    sigset_t set;
    sigemptyset(&set);
    for (const int taken : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&set, taken);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    signals_ = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (!open_outputs()) return false;
    simulation_.unit.log(log_.is_open());
    simulation_.unit.set_log(
        [this](std::string_view line) { (log_.is_open() ? log_ : out_).put(line); });
    start_us_ = clock_us();
    simulation_.line.take(start_us_);
    return connect();
}

bool Program::open_outputs() {
    if (const std::string wrong = error_.start(STDERR_FILENO); !wrong.empty()) {
        report_early_error(wrong);
        return false;
    }
    std::string wrong = out_.start(STDOUT_FILENO);
    if (wrong.empty() && !arguments_.log.empty()) wrong = log_.open(arguments_.log);
    if (!wrong.empty()) report_error(wrong);
    return wrong.empty();
}

bool Program::connect() {
    const bool own = arguments_.device.empty();
    std::string wrong = own ? device_.open_pseudo_terminal() : device_.open_port(arguments_.device);
    if (wrong.empty() && !arguments_.link.empty()) {
        wrong = make_link(arguments_.link, device_.path());
        linked_ = wrong.empty();
    }
    if (!wrong.empty()) {
        report_error(wrong);
        device_.close();
        return false;
    }
    const Options& unit = simulation_.unit.options();
    const std::string what = replays() ? "replay of " + arguments_.replay
                                       : "control unit " + std::to_string(unit.family) + "." +
                                             std::to_string(unit.version) + "." +
                                             std::to_string(unit.revision);
    print(what + " on " + device_.path() + (linked_ ? ", linked as " + arguments_.link : ""));
    return true;
}

void Program::disconnect() {
    if (linked_) remove_link(arguments_.link, device_.path());
    linked_ = false;
    device_.close();
    replay_.clear();
}

void Program::follow_cable() {
    const bool plugged = simulation_.unit.quirks().plugged && simulation_.line.plugged(clock_us());
    if (plugged && !device_.is_open()) {
        // The error was reported; the cable counts as disconnected until the command plug.
        if (!connect()) simulation_.unit.plug(false);
    } else if (!plugged && device_.is_open()) {
        print("the cable is out");
        disconnect();
    }
    device_.deny(simulation_.line.options().denied);
}

void Program::run_command(const std::string& line) {
    if (line == "quit") {
        ended_ = true;
        return;
    }
    const auto words = split_words(line);
    const bool of_the_line =
        !words.empty() && (words[0] == "line" || words[0] == "unplug" || words[0] == "plug");
    if (replays() && !of_the_line) {
        print("Error: a replayed unit has no car. Type line, unplug, plug or quit.");
        return;
    }
    print(simulation_.command(line, clock_us()));
    if (line == "help") print("  quit              ends the program");
}

void Program::run_scenario() {
    while (!ended_ && next_step_ < scenario_.steps.size()) {
        const ScenarioStep& step = scenario_.steps[next_step_];
        const std::int64_t due_us = start_us_ + static_cast<std::int64_t>(step.at_s * 1e6);
        if (clock_us() < due_us) return;
        ++next_step_;
        run_command(step.command);
    }
}

void Program::exchange() {
    if (!device_.is_open()) return;
    bool lost = false;
    const auto sent = device_.read(lost);
    const std::int64_t now_us = clock_us();
    if (!sent.empty()) simulation_.line.receive(sent, now_us);
    device_.write(simulation_.line.take(now_us));
    if (lost) device_gone();
}

void Program::device_gone() {
    report_error(device_.path() + " is gone; connect it again and type: plug");
    disconnect();
    simulation_.unit.plug(false);
}

void Program::read_input() {
    std::array<char, 1024> buffer{};
    const ssize_t got = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got > 0) return handle_input({buffer.data(), static_cast<std::size_t>(got)});
    if (got < 0 && (errno == EINTR || errno == EAGAIN)) return;
    // End of input: a last line without a line end still counts.
    if (!line_.empty()) handle_input("\n");
    reads_input_ = false;
    if (arguments_.exit_on_eof) ended_ = true;
}

void Program::handle_input(std::string_view bytes) {
    for (const char c : bytes) {
        if (c != '\n') {
            if (line_.size() < longest_typed_line)
                line_ += c;
            else
                line_too_long_ = true;
            continue;
        }
        while (!line_.empty() && (line_.back() == '\r' || line_.back() == ' '))
            line_.pop_back();
        if (line_too_long_)
            print("Error: that line is too long. Type help for the list.");
        else if (!ended_)
            run_command(line_);
        line_.clear();
        line_too_long_ = false;
    }
}

std::int64_t Program::next_us() const {
    std::int64_t next = INT64_MAX;
    if (device_.is_open()) next = simulation_.line.next_byte_at_us().value_or(next);
    if (!simulation_.line.plugged(clock_us())) next = simulation_.line.back_in_at_us();
    if (next_step_ < scenario_.steps.size()) {
        const double at_s = scenario_.steps[next_step_].at_s;
        next = std::min(next, start_us_ + static_cast<std::int64_t>(at_s * 1e6));
    }
    return next;
}

void Program::wait() {
    std::array<pollfd, 4> watched{{{signals_, POLLIN, 0},
                                   {reads_input_ ? STDIN_FILENO : -1, POLLIN, 0},
                                   {device_.fd(), POLLIN, 0},
                                   {device_.watch_fd(), POLLIN, 0}}};
    const std::int64_t next = next_us();
    timespec left{};
    if (next != INT64_MAX) {
        const std::int64_t us = std::max<std::int64_t>(0, next - clock_us());
        left.tv_sec = us / 1'000'000;
        left.tv_nsec = us % 1'000'000 * 1000;
    }
    if (ppoll(watched.data(), watched.size(), next == INT64_MAX ? nullptr : &left, nullptr) <= 0)
        return;
    if (watched[0].revents != 0) ended_ = true;
    if (watched[1].revents != 0) read_input();
    if (watched[3].revents != 0) device_.discard_unread();
    // A port that was hung up always polls as readable and would be read without end.
    if (watched[2].revents & (POLLERR | POLLHUP | POLLNVAL)) device_gone();
}

int run_program(int count, const char* const* words) {
    keep_standard_descriptors();
    std::string wrong;
    const auto size = static_cast<std::size_t>(std::max(0, count - 1));
    const auto arguments = read_arguments({words + std::min(count, 1), size}, wrong);
    if (!arguments) {
        report_early_error(wrong);
        return 2;
    }
    if (arguments->help) {
        std::fputs(help_text().c_str(), stdout);
        return 0;
    }
    if (arguments->version) {
        std::fputs("control-unit " ZOL_VERSION "\n", stdout);
        return 0;
    }
    return Program(*arguments).run();
}

} // namespace sim
