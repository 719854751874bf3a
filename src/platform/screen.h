// SPDX-License-Identifier: GPL-3.0-or-later
// The screen as a whole: its size, the mouse cursor and the screen saver. Called by the windows and the game
// launch.
#pragma once

#include "platform/types.h"

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CMONITORS = 80;
constexpr int SM_SHUTTINGDOWN = 0x2000;

constexpr UINT SPI_SETSCREENSAVEACTIVE = 0x0011;

// Returns a property of the screen or the session. SM_CXSCREEN and SM_CYSCREEN: width and height in pixels.
// SM_CMONITORS: number of screens, which is 1, or 0 without a display or after it has been lost.
// SM_SHUTTINGDOWN: 1 once the program has been asked to end from outside, else 0. Any other index: 0.
int GetSystemMetrics(int index);

// Increments (TRUE) or decrements (FALSE) the display count of the mouse cursor, initially 0, and returns the
// new count. The cursor is visible while the count is 0 or more.
int ShowCursor(BOOL show);

// Supports SPI_SETSCREENSAVEACTIVE only: FALSE in uiParam disables the screen saver, TRUE leaves it to the
// system again. Returns FALSE for any other action.
BOOL SystemParametersInfoA(UINT action, UINT uiParam, LPVOID pvParam, UINT winIni);
