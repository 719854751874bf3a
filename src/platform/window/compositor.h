// SPDX-License-Identifier: GPL-3.0-or-later
// Composes the windows onto the display when something has changed, where possible only the changed part.
// Called by the window operations, the media windows and, through the display, by every wait. Sends no
// messages.
#pragma once

#include "platform/types.h"

// Records that the position, order or visibility of a window has changed.
void noteScreenChange();

// Sets the function that is called before each refresh to draw new movie pictures into their windows. It
// returns whether more of them are to come.
void setPictureSource(bool (*update)());

// Shows what has changed, unless a visible window has not been painted yet. True while movies play.
bool refreshScreen();

// Marks a window as painted and shows the screen immediately, even when other windows have not been painted
// yet.
void showWindowNow(HWND handle);
