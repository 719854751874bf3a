// Composes one whole frame into the frame buffer: background, status bar and the view that is set. Called at
// start-up and by the commands, never from a paint: the caller invalidates the window, and the paint copies
// the frame.
#pragma once

#include "platform/types.h"

// Draws the frame into a device context that has the bitmap selected. Without visible games it is the bare
// background. Always 1.
int drawScreen(HDC dc, HBITMAP bitmap);

// Composes the frame buffer anew and has the window paint it.
void redraw(HWND window);
