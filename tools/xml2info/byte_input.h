// The bytes of an open file or pipe, in order, with the option to
// put some back. Shared by the search for the list's start and
// the converter's workers, who take turns; takes no lock itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class ByteInput {
public:
    // The descriptor stays the caller's.
    explicit ByteInput(int openDescriptor) : descriptor(openDescriptor) {}

    // Reads up to size bytes, at least one unless the input has ended or failed.
    std::size_t read(char* target, std::size_t size);

    // Puts bytes back in front of everything that is still to be read.
    void putBack(std::string_view bytes);

    // Reads and drops the rest.
    void drain();

    // The input could not be read to its end.
    bool failed() const { return readFailed; }

private:
    int descriptor;
    std::string returned;
    std::size_t returnedFrom = 0; // what stands before has been read again
    bool readFailed = false;
};
