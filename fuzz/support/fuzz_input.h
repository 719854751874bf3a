// SPDX-License-Identifier: GPL-3.0-or-later
// Divides the bytes of an execution into numbers and texts, and fails an execution whose result is wrong.
// Used by all fuzz targets. Numbers and names are taken from the end of the input, so that the rest is an
// ordinary file followed by a few bytes, and files can be seeds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// Ends the process as a crash does, so that the fuzzer keeps the input.
inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    // A number from `lowest` to `highest`, which are at most 65,535 apart; `lowest` at the end of the input.
    int number(int lowest, int highest) {
        const unsigned span = static_cast<unsigned>(highest - lowest) + 1;
        unsigned value = takeByte();
        if (span > 256) {
            value = value << 8 | takeByte();
        }
        return lowest + static_cast<int>(value % span);
    }

    bool flag() { return number(0, 1) == 1; }

    // The bytes after the last separator, which is dropped, or all bytes without one. At most `longest`
    // bytes.
    std::string word(std::size_t longest, char separator = '\n') {
        const std::size_t found = rest_.rfind(separator);
        const std::size_t begin = found == std::string_view::npos ? 0 : found + 1;
        std::string word(rest_.substr(begin, longest));
        rest_ = rest_.substr(0, begin > 0 ? begin - 1 : 0);
        return word;
    }

    std::string_view rest() const { return rest_; }

private:
    unsigned takeByte() {
        if (rest_.empty()) {
            return 0;
        }
        const auto byte = static_cast<unsigned char>(rest_.back());
        rest_.remove_suffix(1);
        return byte;
    }

    std::string_view rest_;
};
