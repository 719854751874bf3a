#include "xml2info/byte_input.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

std::size_t ByteInput::read(char* target, std::size_t size) {
    if (returnedFrom < returned.size()) {
        const std::size_t count = std::min(size, returned.size() - returnedFrom);
        std::memcpy(target, returned.data() + returnedFrom, count);
        returnedFrom += count;
        return count;
    }
    if (readFailed) {
        return 0;
    }
    ssize_t count = 0;
    do {
        count = ::read(descriptor, target, size);
    } while (count < 0 && errno == EINTR);
    readFailed = count < 0;
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void ByteInput::putBack(std::string_view bytes) {
    returned.replace(0, returnedFrom, bytes);
    returnedFrom = 0;
}

void ByteInput::drain() {
    std::array<char, 65536> dropped;
    while (read(dropped.data(), dropped.size()) > 0) {
    }
}
