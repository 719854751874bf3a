// What is drawn into windows: their invalid state, the paint that follows from it, and device contexts for
// their client areas. Called by the windows' procedures and whoever wants a window redrawn. The operations
// that draw take these device contexts and stand in drawing.h, text.h, shapes.h and stretch.h.
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

// Marks the whole window for a paint (a null rect; parts are not kept). With erase the background is filled
// first.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);

// Sends WM_PAINT now when the window is visible and invalid, else does nothing.
BOOL UpdateWindow(HWND window);

// Validates the window, sends WM_ERASEBKGND when an erase is due, and gives a device context for the client
// area, which lives to EndPaint. EndPaint shows the new picture on the display at once.
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// A device context for the client area, held until ReleaseDC (1 on success) or the end of the window. What is
// drawn into it shows with the next paint, message look-up or wait.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
