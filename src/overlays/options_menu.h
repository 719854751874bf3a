// The options menu: 23 lines that change the settings on the spot.
// Called by the ShowMenu command, which does what has to follow a
// change. The ini file is written at the end of the program only.
#pragma once

// Shows the menu and blocks until it is left; leaving it is the confirmation. 1 when every line has been
// written into the settings, touched or not; 0, with the settings as they were, when the menu is not allowed
// or no window could be made.
int showOptionsMenu();
