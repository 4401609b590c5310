#include "tests/process/tour/unit_process.h"

#include <charconv>
#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tour {
namespace {

using clock = std::chrono::steady_clock;

constexpr int most_wait_ms = 2000;

[[noreturn]] void become(std::vector<std::string> words, int input, int output) {
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::dup2(input, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::execv(pointers[0], pointers.data());
    ::_exit(127);
}

} // namespace

UnitProcess::UnitProcess(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
    int typed[2], said[2];
    if (::pipe2(typed, O_CLOEXEC) != 0 || ::pipe2(said, O_CLOEXEC) != 0) return;
    std::vector<std::string> words = {program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    words.emplace_back("--exit-on-eof");
    process_ = ::fork();
    if (process_ == 0) become(words, typed[0], said[1]);
    ::close(typed[0]);
    ::close(said[1]);
    input_ = typed[1];
    output_ = said[0];
}

UnitProcess::~UnitProcess() {
    if (input_ >= 0) ::close(input_);
    if (process_ > 0) ::waitpid(process_, nullptr, 0);
    if (output_ >= 0) ::close(output_);
}

void UnitProcess::type(const std::string& command) {
    const std::string line = command + "\n";
    [[maybe_unused]] const ssize_t written = ::write(input_, line.data(), line.size());
}

int UnitProcess::parameter(int number) {
    const std::string name = "PAR_" + std::to_string(number) + " = ";
    const std::string line = answer("memory " + std::to_string(number), name);
    int value = -1;
    if (!line.empty()) std::from_chars(line.data() + name.size(), line.data() + line.size(), value);
    return value;
}

bool UnitProcess::says(const std::string& part, int most_ms) {
    const auto end = clock::now() + std::chrono::milliseconds(most_ms);
    while (clock::now() < end)
        if (next_line(most_ms / 10).find(part) != std::string::npos) return true;
    return false;
}

std::string UnitProcess::answer(const std::string& command, const std::string& beginning) {
    while (!next_line(0).empty()) {}
    type(command);
    const auto end = clock::now() + std::chrono::milliseconds(most_wait_ms);
    while (clock::now() < end) {
        const std::string line = next_line(most_wait_ms / 10);
        if (line.starts_with(beginning)) return line;
    }
    return {};
}

std::string UnitProcess::next_line(int most_ms) {
    for (;;) {
        if (const auto end = heard_.find('\n'); end != std::string::npos) {
            std::string line = heard_.substr(0, end);
            heard_.erase(0, end + 1);
            return line;
        }
        pollfd readable{output_, POLLIN, 0};
        char block[4096];
        if (::poll(&readable, 1, most_ms) <= 0) return {};
        const ssize_t got = ::read(output_, block, sizeof block);
        if (got <= 0) return {};
        heard_.append(block, static_cast<std::size_t>(got));
    }
}

} // namespace zol::tour
