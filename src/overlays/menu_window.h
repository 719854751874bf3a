// SPDX-License-Identifier: GPL-3.0-or-later
// A menu in a popup over the main window: shows a list of lines and lets either player move through it and
// change the choices, with the controls and the rotation of the game list. Called by options_menu.cpp, which
// knows what the choices mean.
#pragma once

#include "overlays/menu_model.h"

// Shows the menu and blocks until it is closed. The lines stay owned by the caller; the player's choices are
// written to their `current`. Messages of all windows are dispatched meanwhile; WM_QUIT also closes the menu
// and is consumed. Returns 1 when the menu was shown; 0, after a message box, when the window could not be
// created.
int runMenu(MenuItem** items, std::int32_t count);

// Releases the resources of all menus. Called after the outermost runMenu.
void closeMenuWindows();
