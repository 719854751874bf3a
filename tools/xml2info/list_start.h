// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the start of the game list in the output of an emulator, which may begin with warnings, even ones
// that contain angle brackets. Called once by the converter. Does not parse any machine.
#pragma once

#include "xml2info/byte_input.h"

#include <optional>

struct ListStart {
    std::string bytes;        // what has been read so far, starting with the first byte of the XML
    std::size_t firstMachine; // offset of the first machine's tag in `bytes`
    std::string rootName;
    // The list can be parsed in parts: it is UTF-8 and has neither entities nor an external DTD.
    bool divisible;
};

// Returns nothing when the input contains no list.
std::optional<ListStart> findListStart(ByteInput& input);
