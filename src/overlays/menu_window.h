// A menu in a popup over the main window: shows a list of lines and lets either player walk it and step the
// values, with the controls and the rotation of the game list. Called by the options menu. What the values
// mean is not known here.
#pragma once

#include "overlays/menu_model.h"

// Shows the lines, which stay the caller's, and blocks until the menu is left; `current` of each line then
// holds the answer. 1 when the menu has run, however it ended; 0, after a message box, when no window could
// be made. Messages of all windows are served meanwhile. A WM_QUIT ends the menu and is used up.
int runMenu(MenuItem** items, std::int32_t count);

// Releases what the menus since the last call have left behind. After the outermost runMenu.
void closeMenuWindows();
