// SPDX-License-Identifier: GPL-3.0-or-later
// Device contexts: creating and deleting memory device contexts, and the selected objects and text state of
// any device context. Called by everything that draws. Window device contexts are created in painting.h, the
// objects to select in drawing_objects.h, shapes.h and text.h.
#pragma once

#include "platform/types.h"

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr int LOGPIXELSY = 90;

// Creates a memory device context with a 1x1 bitmap, a white brush, a black pen and the system font selected.
// `like` is ignored. Returns null when 10,000 device contexts exist.
HDC CreateCompatibleDC(HDC like);

// Deletes a memory device context and deselects its objects, which destroys those that are already deleted
// and not selected elsewhere. Returns FALSE for a bad handle or a window's device context.
BOOL DeleteDC(HDC dc);

// Selects a bitmap, brush, pen or font and returns the object of the same kind that it replaces. Returns null
// and changes nothing for a bad handle, for a bitmap in a window's device context, and for a bitmap that is
// selected in another device context.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

// Returns 96 (dots per inch) for LOGPIXELSY, on every machine, and 0 for any other index or a bad handle.
int GetDeviceCaps(HDC dc, int index);

// Text state of the device context. Each function returns the previous value; for a bad handle the colour
// functions return 0xFFFFFFFF and SetBkMode returns 0, which it also does for an invalid mode.
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF SetBkColor(HDC dc, COLORREF color);
int SetBkMode(HDC dc, int mode);
