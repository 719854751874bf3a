// The selected game. Moved by the commands, shown by the views, saved with the settings.
#pragma once

#include "catalogue/game_record.h"

// An index into visibleGames. Written by the start-up and the commands.
extern std::int32_t selectedIndex;

// The record at selectedIndex; null when no game is visible.
GameRecord* selectedGame();
