// SPDX-License-Identifier: GPL-3.0-or-later
// Composes a complete frame: background, status bar and the view chosen in the settings. Called at startup
// and by the commands. Painting the window only copies the composed frame and never calls this.
#pragma once

#include "platform/types.h"

// When set, draws every frame in place of the views and the status bar. `frame` is the size of the bitmap
// that is selected into the device context. Null by default; set once, before the first frame.
extern void (*frameLayout)(HDC dc, SIZE frame);

// Draws the frame into a device context into which the bitmap is selected. Without visible games, draws only
// the background. Always returns 1.
int drawScreen(HDC dc, HBITMAP bitmap);

// Composes the frame buffer and invalidates the window.
void redraw(HWND window);
