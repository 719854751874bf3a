// SPDX-License-Identifier: GPL-3.0-or-later
// Painting of windows: their invalid state, WM_PAINT, and device contexts for their client areas. Called by
// window procedures and by code that needs a window redrawn. The drawing operations on these device contexts
// are in drawing.h, text.h, shapes.h and stretch.h.
#pragma once

#include "platform/types.h"

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

// Marks the whole window as invalid; `rect` is ignored. With `erase`, the next paint fills the background
// first.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);

// Sends WM_PAINT immediately if the window is visible and invalid.
BOOL UpdateWindow(HWND window);

// BeginPaint validates the window, sends WM_ERASEBKGND when an erase is due, and returns a device context for
// the client area that is valid until EndPaint. EndPaint shows the new picture on the display.
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// A device context for the client area, valid until ReleaseDC (which returns 1 on success) or the destruction
// of the window. Drawing becomes visible at the next paint, message poll or wait.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
