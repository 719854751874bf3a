// The selected game. The commands move it, the views show it, and its name is saved with the settings.
#pragma once

#include "catalogue/game_record.h"

// Index into visibleGames. Written at startup and by the commands and the extras.
extern std::int32_t selectedIndex;

// Whether attract play has picked the selected game, and not the player. Written by extras/attract_play.cpp.
extern bool isAttractPick;

// Returns the record at selectedIndex, or null when the index is out of range.
GameRecord* selectedGame();

// Moves the selection to a random index of visibleGames; 0 when there is none.
void selectRandomGame();
