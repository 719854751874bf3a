// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/letter_jump.h"

#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"

#include <cstring>

namespace {

constexpr unsigned noLetter = 0;

// Returns the capital of a letter in code page 1252, or noLetter for any other byte.
unsigned capitalOf(unsigned byte) {
    if (byte >= 'a' && byte <= 'z') {
        return byte - 'a' + 'A';
    }
    if (byte >= 'A' && byte <= 'Z') {
        return byte;
    }
    switch (byte) {
    case 0x8A: // S with caron, OE, Z with caron
    case 0x8C:
    case 0x8E:
    case 0x9F: // Y with diaeresis
        return byte;
    case 0x9A:
    case 0x9C:
    case 0x9E:
        return byte - 0x10;
    case 0xFF:
        return 0x9F;
    case 0xD7: // the signs of multiplication and division
    case 0xF7:
        return noLetter;
    default:
        break;
    }
    constexpr unsigned firstAccented = 0xC0;
    constexpr unsigned firstSmall = 0xE0;
    if (byte < firstAccented) {
        return noLetter;
    }
    return byte >= firstSmall ? byte - 0x20 : byte;
}

unsigned initialOf(const GameRecord& game) {
    return capitalOf(static_cast<unsigned char>(game.description[0]));
}

bool isSameGroup(const GameRecord& first, const GameRecord& second) {
    switch (settings.sortBy) {
    case sortByYear:
        return first.year == second.year;
    case sortByManufacturer:
        return std::strcmp(first.manufacturer, second.manufacturer) == 0;
    default:
        return initialOf(first) == initialOf(second);
    }
}

std::int32_t firstOfGroup(std::int32_t index) {
    while (index > 0 && isSameGroup(*visibleGames[index - 1], *visibleGames[index])) {
        --index;
    }
    return index;
}

} // namespace

std::int32_t firstOfNextGroup() {
    for (std::int32_t index = selectedIndex + 1; index < visibleCount; ++index) {
        if (!isSameGroup(*visibleGames[index - 1], *visibleGames[index])) {
            return index;
        }
    }
    return -1;
}

std::int32_t firstOfPreviousGroup() {
    if (selectedIndex >= visibleCount) {
        return -1;
    }
    const std::int32_t first = firstOfGroup(selectedIndex);
    return first > 0 ? firstOfGroup(first - 1) : -1;
}
