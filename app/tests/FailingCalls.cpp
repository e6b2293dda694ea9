#include "FailingCalls.h"

#include <sys/stat.h>

#include <fcntl.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace {

std::atomic<bool> isArmed = false; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<int> calls = 0;        // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<int> failing = 0;      // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

bool fails() {
    if (!isArmed || ++calls != failing)
        return false;
    errno = EIO;
    return true;
}

} // namespace

void FailingCalls::arm(int number) {
    calls = 0;
    failing = number;
    isArmed = true;
}

int FailingCalls::disarm() {
    isArmed = false;
    return calls;
}

// The names that the option --wrap of the linker asks for. NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __real_open(const char * path, int flags, ...);
int __real_close(int file);
ssize_t __real_write(int file, const void * data, size_t size);
int __real_fsync(int file);
int __real_fchmod(int file, mode_t mode);
int __real_fstat(int file, struct stat * status);
int __real_rename(const char * from, const char * to);

int __wrap_open(const char * path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    return fails() ? -1 : __real_open(path, flags, mode);
}
int __wrap_close(int file) {
    const int result = __real_close(file);
    return fails() ? -1 : result;
}
ssize_t __wrap_write(int file, const void * data, size_t size) {
    return fails() ? -1 : __real_write(file, data, size);
}
int __wrap_fsync(int file) {
    return fails() ? -1 : __real_fsync(file);
}
int __wrap_fchmod(int file, mode_t mode) {
    return fails() ? -1 : __real_fchmod(file, mode);
}
int __wrap_fstat(int file, struct stat * status) {
    return fails() ? -1 : __real_fstat(file, status);
}
int __wrap_rename(const char * from, const char * to) {
    return fails() ? -1 : __real_rename(from, to);
}
} // NOLINTEND(bugprone-reserved-identifier)
