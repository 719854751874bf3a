// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_sort.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

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

void sortGames() {
    if (gameCount > 0) {
        std::qsort(static_cast<void*>(allGames), static_cast<std::size_t>(gameCount), sizeof(GameRecord*),
                   compareGames);
    }
}
