// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/byte_input.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

std::size_t ByteInput::read(char* target, std::size_t size) {
    if (putBackOffset_ < putBack_.size()) {
        const std::size_t count = std::min(size, putBack_.size() - putBackOffset_);
        std::memcpy(target, putBack_.data() + putBackOffset_, count);
        putBackOffset_ += count;
        return count;
    }
    if (failed_) {
        return 0;
    }
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, target, size);
    } while (count < 0 && errno == EINTR);
    failed_ = count < 0;
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void ByteInput::putBack(std::string_view bytes) {
    putBack_.replace(0, putBackOffset_, bytes);
    putBackOffset_ = 0;
}

void ByteInput::drain() {
    std::array<char, 65536> discarded;
    while (read(discarded.data(), discarded.size()) > 0) {
    }
}
