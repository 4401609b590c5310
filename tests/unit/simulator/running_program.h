// The simulated unit as a process of its own, and the tool's end of its line.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace sim {

using Clock = std::chrono::steady_clock;

inline constexpr int patience_ms = 10'000; // only a hung program takes it all

// False if the condition does not hold within a second.
template <class Condition>
bool wait_until(Condition holds) {
    for (int tries = 0; tries < 500; ++tries) {
        if (holds()) return true;
        usleep(2000);
    }
    return false;
}

// The far end of a new pseudo-terminal.
inline int open_pseudo_terminal() {
    const int fd = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_TRUE(fd >= 0 && grantpt(fd) == 0 && unlockpt(fd) == 0);
    return fd;
}

// Reads until `enough`, until the end of the file or until the time is over.
template <class Enough>
std::string read_until(int fd, Enough enough, int ms = patience_ms) {
    std::string got;
    const auto end = Clock::now() + std::chrono::milliseconds(ms);
    while (!enough(got)) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd watched{fd, POLLIN, 0};
        if (left <= 0 || poll(&watched, 1, static_cast<int>(left)) <= 0) break;
        std::array<char, 512> buffer{};
        const ssize_t count = read(fd, buffer.data(), buffer.size());
        if (count <= 0) break;
        got.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return got;
}

class RunningProgram {
  public:
    explicit RunningProgram(const std::vector<std::string>& arguments,
                            const char* program = CONTROL_UNIT) {
        std::array<int, 2> in{}, out{}, err{};
        EXPECT_EQ(pipe2(in.data(), O_CLOEXEC) | pipe2(out.data(), O_CLOEXEC) |
                      pipe2(err.data(), O_CLOEXEC),
                  0);
        std::vector<char*> words{const_cast<char*>(program)};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        pid_ = fork();
        if (pid_ == 0) {
            dup2(in[0], 0);
            dup2(out[1], 1);
            dup2(err[1], 2);
            execv(program, words.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        close(err[1]);
        in_ = in[1];
        out_ = out[0];
        err_ = err[0];
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
        for (const int fd : {in_, out_, err_})
            if (fd >= 0) close(fd);
    }
    void type(const std::string& line) { type_raw(line + "\n"); }
    void type_raw(const std::string& all) {
        EXPECT_EQ(write(in_, all.data(), all.size()), static_cast<ssize_t>(all.size()));
    }
    void end_input() {
        close(in_);
        in_ = -1;
    }
    std::string said_until(const std::string& text) {
        return read_until(out_, [&](const std::string& got) { return got.find(text) != got.npos; });
    }
    // The device that it prints as its own.
    std::string device() {
        const std::string said = said_until("\nseed ");
        const auto from = said.find(" on ") + 4;
        return said.substr(from, said.find_first_of(",\n", from) - from);
    }
    pid_t process() const { return pid_; }
    void signal(int number) { kill(pid_, number); }
    int exit_code() {
        const auto end = Clock::now() + std::chrono::milliseconds(patience_ms);
        int status = 0;
        while (Clock::now() < end) {
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
            }
            usleep(2000);
        }
        return -1000;
    }
    // The rest of standard error, once the program has ended.
    std::string complaints_to_the_end() {
        return read_until(err_, [](const std::string&) { return false; });
    }
    std::string complaint() {
        return read_until(
            err_, [](const std::string& got) { return !got.empty() && got.back() == '\n'; });
    }
    // It waits without using the processor.
    void expect_idle(useconds_t us = 300'000) const {
        const long before = used_ticks();
        usleep(us);
        EXPECT_LE(used_ticks() - before, 5) << "it must not spin";
    }
    // Ticks of the processor used so far.
    long used_ticks() const {
        std::ifstream file("/proc/" + std::to_string(pid_) + "/stat");
        std::string text((std::istreambuf_iterator<char>(file)), {});
        std::istringstream rest(text.substr(text.rfind(')') + 2));
        std::string skipped;
        for (int i = 0; i < 11; ++i)
            rest >> skipped;
        long user = 0, system = 0;
        rest >> user >> system;
        return user + system;
    }

  private:
    pid_t pid_ = -1;
    int in_ = -1, out_ = -1, err_ = -1;
};

// A folder for the test, and in it the path for the unit's link.
class ProgramFolder : public testing::Test {
  protected:
    ProgramFolder() {
        folder = std::filesystem::path(testing::TempDir()) / ("unit" + std::to_string(getpid()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        link = folder / "com1";
    }
    ~ProgramFolder() override { std::filesystem::remove_all(folder); }
    std::filesystem::path folder, link;
};

// The tool's end. It leaves the settings of the terminal alone, which the unit must have set.
class Port {
  public:
    explicit Port(const std::string& path)
        : fd_(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port() { close(fd_); }
    bool is_open() const { return fd_ >= 0; }
    ssize_t send(const std::string& bytes) { return write(fd_, bytes.data(), bytes.size()); }
    ssize_t send_command(int code) { return send({'P', 'C', 0, 5, static_cast<char>(code)}); }
    std::string read_bytes(std::size_t count, int ms = patience_ms) {
        return read_until(
            fd_, [&](const std::string& got) { return got.size() >= count; }, ms);
    }
    void expect_presence_reply() {
        send_command(6);
        EXPECT_EQ(read_bytes(6).size(), 6u);
    }

  private:
    int fd_;
};

} // namespace sim
