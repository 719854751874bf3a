// SPDX-License-Identifier: GPL-3.0-or-later
// The options menu: 23 lines, and one for the favourites, that change the settings in memory. Called by the
// ShowMenu command, which then filters and redraws. The ini file is not written here.
#pragma once

// Shows the menu and blocks until it is closed; there is no way to cancel. Returns 1 when every line has been
// written to the settings, changed or not. Returns 0, with the settings unchanged, when AllowMenu is 0 or the
// window could not be created.
int showOptionsMenu();
