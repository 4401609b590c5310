#include "tests/support/system_calls.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <termios.h>

namespace zol::tests {
namespace {

WatchedCalls* watch = nullptr;

Fate fate_of(std::string_view name) { return watch ? watch->next(name) : Fate{}; }

// For a call that returns 0 or -1.
template <typename Real>
int judged(std::string_view name, Real real) {
    const Fate fate = fate_of(name);
    if (fate.error == 0) return real();
    errno = fate.error;
    return -1;
}

template <typename Real>
ssize_t judged(std::string_view name, std::size_t size, Real real) {
    const Fate fate = fate_of(name);
    if (fate.error == 0) return real(fate.halved ? (size + 1) / 2 : size);
    errno = fate.error;
    return -1;
}

} // namespace

WatchedCalls::WatchedCalls(FateOf fate_of_call) : fate_of_(std::move(fate_of_call)) {
    watch = this;
}
WatchedCalls::~WatchedCalls() { watch = nullptr; }

Fate WatchedCalls::next(std::string_view name) {
    names_.emplace_back(name);
    return fate_of_(static_cast<int>(names_.size()), name);
}

} // namespace zol::tests

using zol::tests::fate_of;
using zol::tests::judged;

// The linker turns a call of x in the program into one of __wrap_x; __real_x is the system's.
extern "C" {
int __real_open(const char* path, int flags, ...);
int __real_fstat(int descriptor, struct stat* status);
ssize_t __real_read(int descriptor, void* bytes, std::size_t size);
ssize_t __real_write(int descriptor, const void* bytes, std::size_t size);
int __real_fchmod(int descriptor, mode_t mode);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_tcgetattr(int descriptor, termios* line);
int __real_tcsetattr(int descriptor, int when, const termios* line);

int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return judged("open", [&] { return __real_open(path, flags, mode); });
}
int __wrap_fstat(int descriptor, struct stat* status) {
    return judged("fstat", [&] { return __real_fstat(descriptor, status); });
}
ssize_t __wrap_read(int descriptor, void* bytes, std::size_t size) {
    return judged("read", size, [&](std::size_t n) { return __real_read(descriptor, bytes, n); });
}
ssize_t __wrap_write(int descriptor, const void* bytes, std::size_t size) {
    return judged("write", size, [&](std::size_t n) { return __real_write(descriptor, bytes, n); });
}
int __wrap_fchmod(int descriptor, mode_t mode) {
    return judged("fchmod", [&] { return __real_fchmod(descriptor, mode); });
}
int __wrap_fsync(int descriptor) {
    return judged("fsync", [&] { return __real_fsync(descriptor); });
}
// The descriptor is closed also when the system reports that its last bytes could not be stored.
int __wrap_close(int descriptor) {
    const auto fate = fate_of("close");
    const int result = __real_close(descriptor);
    if (fate.error == 0) return result;
    errno = fate.error;
    return -1;
}
int __wrap_rename(const char* from, const char* to) {
    return judged("rename", [&] { return __real_rename(from, to); });
}
int __wrap_unlink(const char* path) {
    return judged("unlink", [&] { return __real_unlink(path); });
}
int __wrap_tcgetattr(int descriptor, termios* line) {
    return judged("tcgetattr", [&] { return __real_tcgetattr(descriptor, line); });
}
int __wrap_tcsetattr(int descriptor, int when, const termios* line) {
    return judged("tcsetattr", [&] { return __real_tcsetattr(descriptor, when, line); });
}
}
