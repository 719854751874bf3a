// Facts and switches of the screen as a whole:
// its size, the mouse cursor, the screen saver.
// Called by the windows and the game launch.
#pragma once

#include "platform/types.h"

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CMONITORS = 80;
constexpr int SM_SHUTTINGDOWN = 0x2000;

constexpr UINT SPI_SETSCREENSAVEACTIVE = 0x0011;

// Width or height of the screen in pixels; the number of screens, 1 or, once the display has been lost, 0; 1
// once the program has been asked to end from outside, else 0. 0 for any other index.
int GetSystemMetrics(int index);

// Raises or lowers the display count of the mouse cursor, which starts at 0, and gives the new one. The
// cursor is seen while the count is 0 or more.
int ShowCursor(BOOL show);

// SPI_SETSCREENSAVEACTIVE: FALSE in uiParam keeps the screen saver off, TRUE gives it back to the system.
// FALSE for any other action.
BOOL SystemParametersInfoA(UINT action, UINT uiParam, LPVOID pvParam, UINT winIni);
