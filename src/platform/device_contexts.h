// Device contexts: memory ones, what is selected in any of them, and the state that drawing reads. Called by
// everything that draws. Those of windows are made in painting.h; the objects that are selected in
// drawing_objects.h.
#pragma once

#include "platform/types.h"

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr int LOGPIXELSY = 90;

// A memory device context, with a 1x1 bitmap, a white brush, a black pen and the system font selected. `like`
// may be null.
HDC CreateCompatibleDC(HDC like);

// Ends a memory device context. What it has selected is let go; an object that was deleted while selected
// ends here.
BOOL DeleteDC(HDC dc);

// Selects a bitmap, brush, pen or font and gives the one that it replaces. Null and no change for anything
// else, for a bitmap in a window's device context, and for a bitmap that another device context holds.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

// LOGPIXELSY: 96 dots per inch, always. 0 for any other index.
int GetDeviceCaps(HDC dc, int index);

// State of the device context for text. Each gives the former value (0xFFFFFFFF or 0 on a bad handle).
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF SetBkColor(HDC dc, COLORREF color);
int SetBkMode(HDC dc, int mode);
