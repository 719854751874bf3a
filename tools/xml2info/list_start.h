// Finds the game list in what an emulator wrote: warnings
// may stand before it, even ones that hold angle brackets.
// Called once by the converter. Reads no machine.
#pragma once

#include "xml2info/byte_input.h"

#include <optional>

struct ListStart {
    std::string bytes;        // what has been read, from the first byte of the XML on
    std::size_t firstMachine; // offset in bytes of the first machine's tag
    std::string rootName;
    // The list may be parsed in parts: it is UTF-8 and declares nothing that a part would have to know.
    bool divisible;
};

// Nothing when the input ends, or has turned out to be something else, before a first machine.
std::optional<ListStart> findListStart(ByteInput& input);
