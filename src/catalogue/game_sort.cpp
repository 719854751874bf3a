// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_sort.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t unknownYear = 9999;

bool hasFourDigits(std::int32_t year) {
    return year >= 1000 && year <= 9999;
}

int compareYears(const GameRecord& first, const GameRecord& second) {
    // Fast path: numbers of four digits sort like their texts.
    if (hasFourDigits(first.year) && hasFourDigits(second.year)) {
        return first.year - second.year;
    }
    char firstText[12];
    char secondText[12];
    std::snprintf(firstText, sizeof firstText, "%i", first.year);
    std::snprintf(secondText, sizeof secondText, "%i", second.year);
    return std::strcmp(firstText, secondText);
}

int compareManufacturers(const GameRecord& first, const GameRecord& second) {
    return std::strcmp(first.manufacturer, second.manufacturer);
}

int compareDescriptions(const GameRecord& first, const GameRecord& second) {
    return std::strcmp(first.description, second.description);
}

using Comparison = int (*)(const GameRecord& first, const GameRecord& second);

// The keys of each sort order, most significant first.
constexpr Comparison byName[] = {compareDescriptions};
constexpr Comparison byYear[] = {compareYears, compareManufacturers, compareDescriptions};
constexpr Comparison byManufacturer[] = {compareManufacturers, compareYears, compareDescriptions};

template <std::size_t count>
int compareByKeys(const Comparison (&keys)[count], const GameRecord& first, const GameRecord& second) {
    int result = 0;
    for (std::size_t key = 0; result == 0 && key < count; ++key) {
        result = keys[key](first, second);
    }
    return result;
}

// The first bytes of a text as a number that sorts like them.
std::uint64_t firstBytes(const char* text) {
    constexpr int byteCount = sizeof(std::uint64_t);
    std::uint64_t bytes = 0;
    for (int i = 0; i < byteCount; ++i) {
        const auto byte = static_cast<unsigned char>(*text);
        bytes = bytes << 8 | byte;
        text += byte != 0 ? 1 : 0;
    }
    return bytes;
}

// The first bytes of the most significant key.
std::uint64_t startOfKey(const GameRecord& record) {
    switch (settings.sortBy) {
    case sortByYear:
        return firstBytes(std::to_string(record.year).c_str());
    case sortByManufacturer:
        return firstBytes(record.manufacturer);
    default:
        return firstBytes(record.description);
    }
}

// Changes a year of 0 to unknownYear in the record.
GameRecord& recordAt(const void* entry) {
    GameRecord& record = **static_cast<GameRecord* const*>(entry);
    if (record.year == 0) {
        record.year = unknownYear;
    }
    return record;
}

} // namespace

int compareGames(const void* first, const void* second) {
    const GameRecord& firstGame = recordAt(first);
    const GameRecord& secondGame = recordAt(second);
    switch (settings.sortBy) {
    case sortByYear:
        return compareByKeys(byYear, firstGame, secondGame);
    case sortByManufacturer:
        return compareByKeys(byManufacturer, firstGame, secondGame);
    default:
        return compareByKeys(byName, firstGame, secondGame);
    }
}

// Most comparisons need only the first bytes, which are copied next to each other: the texts are spread over
// megabytes.
void sortGames() {
    if (gameCount < 2) {
        return;
    }
    struct Entry {
        std::uint64_t start;
        GameRecord* game;
    };
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(gameCount));
    const std::span games(allGames, static_cast<std::size_t>(gameCount));
    for (GameRecord* game : games) {
        entries.push_back({startOfKey(recordAt(&game)), game});
    }
    std::ranges::stable_sort(entries, [](const Entry& first, const Entry& second) {
        return first.start != second.start ? first.start < second.start
                                           : compareGames(&first.game, &second.game) < 0;
    });
    std::ranges::transform(entries, games.begin(), &Entry::game);
}
