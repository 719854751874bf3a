// SPDX-License-Identifier: GPL-3.0-or-later
#include "failing_calls.h"

#include <linux/limits.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

CallFailure failure = {};
int callsSeen = 0;
const char* failed = nullptr;

bool isInFolder(const char* path) {
    char folder[PATH_MAX];
    if (path[0] != '/') {
        return true;
    }
    const char* known = getcwd(folder, sizeof(folder));
    return known && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool isInFolder(int file) {
    char link[64];
    char path[PATH_MAX];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof(path) - 1);
    path[length > 0 ? length : 0] = '\0';
    return length > 0 && path[0] == '/' && isInFolder(path);
}

// Counts a call. Returns whether it is the one to fail.
template <typename File> bool failsNow(const char* name, File file) {
    if (failure.number == 0 || failed || !isInFolder(file) || ++callsSeen != failure.number) {
        return false;
    }
    failed = name;
    errno = failure.error;
    return true;
}

} // namespace

void failCall(const CallFailure& wanted) {
    failure = wanted;
    callsSeen = 0;
    failed = nullptr;
}

const char* failedCall() {
    return failed;
}

extern "C" {

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const unsigned mode = va_arg(more, unsigned);
    va_end(more);
    constexpr int currentFolder = -100; // AT_FDCWD, whose header declares a different open
    return failsNow("open", path) ? -1
                                  : static_cast<int>(syscall(SYS_openat, currentFolder, path, flags, mode));
}

// Writes half before it fails, as on a disk that becomes full.
ssize_t write(int file, const void* bytes, size_t size) {
    if (failsNow("write", file)) {
        syscall(SYS_write, file, bytes, size / 2);
        errno = failure.error;
        return -1;
    }
    return syscall(SYS_write, file, bytes, size);
}

int fsync(int file) {
    return failsNow("fsync", file) ? -1 : static_cast<int>(syscall(SYS_fsync, file));
}

// Linux closes the file in any case.
int close(int file) {
    const bool fails = failsNow("close", file);
    const int result = static_cast<int>(syscall(SYS_close, file));
    if (fails) {
        errno = failure.error;
    }
    return fails ? -1 : result;
}

int flock(int file, int operation) noexcept {
    return failsNow("flock", file) ? -1 : static_cast<int>(syscall(SYS_flock, file, operation));
}

int fchmod(int file, unsigned mode) noexcept {
    return failsNow("fchmod", file) ? -1 : static_cast<int>(syscall(SYS_fchmod, file, mode));
}

int rename(const char* from, const char* to) noexcept {
    return failsNow("rename", from) ? -1 : static_cast<int>(syscall(SYS_rename, from, to));
}

int unlink(const char* path) noexcept {
    return failsNow("unlink", path) ? -1 : static_cast<int>(syscall(SYS_unlink, path));
}

int remove(const char* path) noexcept {
    return failsNow("remove", path) ? -1 : static_cast<int>(syscall(SYS_unlink, path));
}

} // extern "C"
