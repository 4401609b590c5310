#include "tests/support/small_disk.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

constexpr int refused = 77, failed = 1;

void write_line(const char* file, const std::string& line) { std::ofstream(file) << line; }

// Without the right to mount, a user namespace that keeps the uid gives it.
bool enter_own_mounts() {
    if (::unshare(CLONE_NEWNS) == 0) return true;
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
    const auto itself = [](auto id) {
        return std::to_string(id) + " " + std::to_string(id) + " 1";
    };
    write_line("/proc/self/setgroups", "deny");
    write_line("/proc/self/uid_map", itself(user));
    write_line("/proc/self/gid_map", itself(group));
    return true;
}

bool mount_disk(const std::filesystem::path& place, std::size_t bytes) {
    const std::string size = "size=" + std::to_string(bytes);
    return enter_own_mounts() &&
           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("small_disk", place.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

[[noreturn]] void run_on_disk(const std::filesystem::path& place, std::size_t bytes,
                              const std::function<void()>& body) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (!mount_disk(place, bytes)) ::_exit(refused);
    body();
    std::fflush(stdout);
    ::_exit(testing::Test::HasFailure() ? failed : 0);
}

} // namespace

std::optional<std::string> on_small_disk(const std::filesystem::path& place, std::size_t bytes,
                                         const std::function<void()>& body) {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) run_on_disk(place, bytes, body);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return "no process could be forked";
    if (WIFEXITED(status) && WEXITSTATUS(status) == refused)
        return "mounting a disk in memory needs the superuser or namespaces for users, and this "
               "machine allows neither";
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "on the small disk, see above (status " << status << ")";
    return std::nullopt;
}

void fill_disk(const std::filesystem::path& folder) {
    constexpr std::array<char, 512> block{};
    const std::filesystem::path filler = folder / "filler";
    const int descriptor = ::open(filler.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    ASSERT_GE(descriptor, 0);
    while (::write(descriptor, block.data(), block.size()) > 0) {}
    EXPECT_EQ(errno, ENOSPC) << std::strerror(errno);
    ::close(descriptor);
}

} // namespace zol::tests
