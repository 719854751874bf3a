// The filtered view of the catalogue. Filled by the filter, emptied with the catalogue, read by everything
// that shows or selects games.
#pragma once

#include "catalogue/game_record.h"

#include <cstdint>

// Borrowed records in the order of the catalogue; null when empty. Both are written by setVisibleGames alone.
extern GameRecord** visibleGames;
extern std::int32_t visibleCount;

// Counts the views so far, so that whoever keeps something made from one can tell that it is out of date.
extern std::uint32_t viewGeneration;

// Replaces the view. The array comes from malloc and is owned from here on; null with a count of 0 empties
// the view.
void setVisibleGames(GameRecord** games, std::int32_t count);

// Index in visibleGames of the first record with exactly this name, or -1.
std::int32_t findVisibleGame(const char* name);
