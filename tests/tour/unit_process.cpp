#include "tests/tour/unit_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tour {

UnitProcess::UnitProcess(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    std::vector<std::string> words = {program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    words.emplace_back("--exit-on-eof");
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    process_ = ::fork();
    if (process_ == 0) {
        ::dup2(ends[0], STDIN_FILENO);
        const int nothing = ::open("/dev/null", O_WRONLY);
        ::dup2(nothing, STDOUT_FILENO);
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    ::close(ends[0]);
    input_ = ends[1];
}

UnitProcess::~UnitProcess() {
    if (input_ >= 0) ::close(input_);
    if (process_ > 0) ::waitpid(process_, nullptr, 0);
}

void UnitProcess::type(const std::string& command) {
    const std::string line = command + "\n";
    [[maybe_unused]] const ssize_t written = ::write(input_, line.data(), line.size());
}

} // namespace zol::tour
