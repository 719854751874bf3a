// The StartGame command: what happens on the screen
// around the run of a game. Called by the tick,
// which stands still until the game has ended.
#pragma once

#include "platform/types.h"

// Starts the selected game, or tells that its ROM is missing. Nothing when no game is visible.
void startSelectedGame(HWND window);
