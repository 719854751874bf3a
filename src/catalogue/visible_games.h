// SPDX-License-Identifier: GPL-3.0-or-later
// The view: the records of the catalogue that pass the filter. Rebuilt by the filter, cleared with the
// catalogue, and read by everything that displays or selects games.
#pragma once

#include "catalogue/game_record.h"

#include <cstdint>

// Borrowed records in catalogue order; null when empty. Both are written only by setVisibleGames.
extern GameRecord** visibleGames;
extern std::int32_t visibleCount;

// Incremented whenever the view is replaced, so that cached drawings of it can be invalidated.
extern std::uint32_t viewGeneration;

// Replaces the view and takes ownership of the array, which was allocated with malloc. Pass null and 0 to
// clear the view.
void setVisibleGames(GameRecord** games, std::int32_t count);

// Returns the index in visibleGames of the first record with exactly this name, or -1.
std::int32_t findVisibleGame(const char* name);
