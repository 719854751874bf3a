// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the bytes of an open file or pipe, and lets callers put bytes back. Used by the search for the start
// of the list and then by the workers of the converter. Not thread-safe: the workers hold a lock while they
// use it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class ByteInput {
public:
    // Does not take ownership of the descriptor.
    explicit ByteInput(int descriptor) : descriptor_(descriptor) {}

    // Reads up to size bytes and returns their number, which is 0 only at the end of the input or after an
    // error.
    std::size_t read(char* target, std::size_t size);

    // Puts bytes back; they are read again before anything else.
    void putBack(std::string_view bytes);

    // Reads and discards the remaining input.
    void drain();

    // True after a read error.
    bool failed() const { return failed_; }

private:
    int descriptor_;
    std::string putBack_;
    std::size_t putBackOffset_ = 0; // the bytes before this offset have been read again
    bool failed_ = false;
};
