// SPDX-License-Identifier: GPL-3.0-or-later
// The status bar: one line with details of the selected game at its start and the sort order and position at
// its end. Called by drawScreen before the view, which gets the remaining space, and on a turned screen once
// more after it.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Height of the bar in pixels when it was last drawn; 0 when it is disabled. Written by drawStatusBar.
extern std::int32_t statusBarHeight;

// Draws the bar for the game at an index of visibleGames, along the bottom edge as read: the bottom of the
// frame at 0, the left at 90, the top at 180, the right at -90. width and height are the size of the frame.
// With Layout=Turned the texts are shortened to fit.
// Leaves its font, colours and OPAQUE mode selected. Draws nothing when the bar is disabled. Always
// returns 1.
int drawStatusBar(HDC dc, std::int32_t index, std::int32_t width, std::int32_t height);

// Returns a frame of the given size without the strip of the status bar.
RECT areaWithoutStatusBar(std::int32_t width, std::int32_t height);
