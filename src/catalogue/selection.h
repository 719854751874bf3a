// SPDX-License-Identifier: GPL-3.0-or-later
// The selected game. The commands move it, the views show it, and its name is saved with the settings.
#pragma once

#include "catalogue/game_record.h"

// Index into visibleGames. Written at startup and by the commands and the extras.
extern std::int32_t selectedIndex;

// The game that the player left for attract play to pick others; null without attract play. Written by
// extras/attract_play.cpp.
extern const GameRecord* gameBeforeAttractPlay;

// Returns the record at selectedIndex, or null when the index is out of range.
GameRecord* selectedGame();

// Returns the name to save: that of the game that the player has selected, not attract play. Null when no
// game is visible.
const char* playersGameName();

// Moves the selection to a random index of visibleGames; 0 when there is none.
void selectRandomGame();
