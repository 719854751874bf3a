// Bitmaps and brushes, and the end of all drawing objects: those, pens (shapes.h) and fonts (text.h). Called
// by everything that draws. An object lives until DeleteObject, and after that as long as a device context
// has it selected; stock objects cannot be deleted. Objects are selected in device_contexts.h.
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

// A black bitmap, owned by the caller. A width or height of 0 gives one of 1x1; null for negative sizes and
// when there is no memory.
HBITMAP CreateCompatibleBitmap(HDC like, int width, int height);

// A brush of one colour, owned by the caller.
HBRUSH CreateSolidBrush(COLORREF color);

// A stock object, owned by the platform: BLACK_BRUSH. Null for any other number.
HGDIOBJ GetStockObject(int index);

// Deletes an object. Deleting one that is selected takes effect when the last device context lets it go;
// deleting a stock object has no effect; both give TRUE. FALSE when there is no such object.
BOOL DeleteObject(HGDIOBJ object);

// Describes a bitmap into a BITMAP (bmBits is null) and gives the bytes written; 0 for anything else or a
// size below that of BITMAP.
int GetObjectA(HGDIOBJ object, int size, LPVOID result);
