// SPDX-License-Identifier: GPL-3.0-or-later
// The scroller: shows the information text of a game in a popup over the main window, wrapped to the popup's
// width and rotated with the screen. The player scrolls by lines with the controls of the game list. Called
// by the GameInfo command, which chooses the text.
#pragma once

#include <cstdint>

// Shows the lines from the first one and blocks until the player presses Exit or GameInfo. The lines stay
// owned by the caller. Messages of all windows are dispatched meanwhile; WM_QUIT also closes the popup and is
// consumed. Returns 1, at once when count is 0; returns 0 when the window could not be created.
int showGameInfo(const char* const* lines, std::int32_t count);
