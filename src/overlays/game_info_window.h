// The scroller: the information text of a game in a popup over the main window, cut to its width, moved line
// by line with the controls of the game list and turned with the screen. Called by the GameInfo command,
// which chooses the text.
#pragma once

#include <cstdint>

// Shows the lines, which stay the caller's and are not changed, from the top, and blocks until the player
// leaves with an Exit or GameInfo control. Messages of all windows are served meanwhile; a WM_QUIT ends it
// too and is used up. 1, also at once without lines; 0 when no window could be made.
int showGameInfo(const char* const* lines, std::int32_t count);
