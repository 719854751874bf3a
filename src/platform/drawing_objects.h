// SPDX-License-Identifier: GPL-3.0-or-later
// Creation of bitmaps and solid brushes, and deletion of every drawing object, including pens (shapes.h) and
// fonts (text.h). Called by everything that draws. An object that is selected when it is deleted is destroyed
// once no device context has it selected any more. At most 10,000 objects can exist; creating another one
// returns null. Objects are selected with device_contexts.h.
#pragma once

#include "platform/types.h"

constexpr int BLACK_BRUSH = 4;

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

// Creates a black bitmap, owned by the caller. If the width or height is 0, it is 1x1. `like` is ignored.
// Returns null if a side is negative or above 32767 pixels, or memory runs out.
HBITMAP CreateCompatibleBitmap(HDC like, int width, int height);

// Creates a solid brush, owned by the caller.
HBRUSH CreateSolidBrush(COLORREF color);

// Returns the stock brush for BLACK_BRUSH, owned by the platform, and null for any other index.
HGDIOBJ GetStockObject(int index);

// Deletes an object. Its handle becomes invalid immediately, even if the object is still selected. Deleting a
// stock object has no effect and returns TRUE. Returns FALSE for a bad handle.
BOOL DeleteObject(HGDIOBJ object);

// Fills the BITMAP at `result` with the description of a bitmap (bmBits is null) and returns the number of
// bytes written. Returns 0 for any other object, a bad handle, or a `size` below sizeof(BITMAP).
int GetObjectA(HGDIOBJ object, int size, LPVOID result);
