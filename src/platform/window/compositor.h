// Draws the windows onto the display: when something has changed, the changed part of it only where it can.
// Called by the operations on windows, by the media windows, and by every wait, through the display. It sends
// no message.
#pragma once

#include "platform/types.h"

// Something about the windows as a whole changed: place, order, visibility.
void noteScreenChange();

// Has a function called before the screen is refreshed, to put new pictures of movies into their windows. It
// tells whether more of them are to come.
void setPictureSource(bool (*update)());

// Shows what has changed, unless a window that was just shown has still to be painted for the first time.
// True while pictures move.
bool refreshScreen();

// Counts a window as painted and shows the screen as it is, whatever other windows still wait for.
void showWindowNow(HWND handle);
