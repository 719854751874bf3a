// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/file_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

bool FileDescriptor::close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0 || errno == EINTR;
}

FileDescriptor openPlainFile(const char* path) {
    FileDescriptor file(open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (file.isOpen() && (fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))) {
        file.close();
    }
    return file;
}

std::ptrdiff_t readSome(int descriptor, char* buffer, std::size_t size) {
    ssize_t length = 0;
    do {
        length = read(descriptor, buffer, size);
    } while (length < 0 && errno == EINTR);
    return length;
}

bool readWhole(const FileDescriptor& file, std::string& text, std::size_t limit) {
    struct stat status {};
    if (fstat(file.number(), &status) != 0 || status.st_size > static_cast<off_t>(limit)) {
        return false;
    }
    // One byte more than the reported size, so that the second read already returns the end of the file. The
    // kernel reports a size of 0 for its own files.
    constexpr std::size_t smallestStep = 4096;
    std::size_t step = std::max(static_cast<std::size_t>(status.st_size) + 1, smallestStep);
    for (;;) {
        const std::size_t former = text.size();
        step = std::min(step, limit + 1 - former);
        text.resize(former + step);
        const std::ptrdiff_t length = readSome(file.number(), text.data() + former, step);
        text.resize(former + static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0)));
        if (length <= 0) {
            return length == 0;
        }
        if (text.size() > limit) {
            return false;
        }
    }
}

bool writeWhole(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t length = write(descriptor, text.data(), text.size());
        if (length < 0 && errno == EINTR) {
            continue;
        }
        if (length <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return true;
}
