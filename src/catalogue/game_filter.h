// The view: which records the player sees, by the filters of the
// settings. Called at the start, after each sort and when the options
// menu closes. What becomes of the selection is the caller's affair.
#pragma once

#include <cstdint>

// Rebuilds visibleGames and visibleCount from allGames, in its order. visibleGames comes from malloc.
void filterGames();

// Index in visibleGames of the first record with exactly this name, or -1.
std::int32_t findVisibleGame(const char* name);
