// SPDX-License-Identifier: GPL-3.0-or-later
// The StartGame command: messages, sounds and pauses around the run of a game. Called by handleTick, and
// blocks until the game has ended.
#pragma once

#include "platform/types.h"

// Starts the selected game, or shows a message when its ROM is missing. Does nothing when no game is visible.
void startSelectedGame(HWND window);
