// Device contexts, bitmaps, brushes, fills and blits. Called by everything that draws. One 32-bit pixel
// format serves everywhere. An object lives until DeleteObject, and after that as long as a device context
// has it selected; stock objects cannot be deleted. Text is drawn by platform/text.h.
#pragma once

#include "platform/types.h"

constexpr DWORD SRCCOPY = 0x00CC0020;

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr int BLACK_BRUSH = 4;

constexpr int LOGPIXELSY = 90;

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

// A memory device context, with a 1x1 bitmap, a white brush, a black pen and the system font selected. `like`
// may be null.
HDC CreateCompatibleDC(HDC like);

// Ends a memory device context. What it has selected is let go; an object that was deleted while selected
// ends here.
BOOL DeleteDC(HDC dc);

// A black bitmap, owned by the caller. A width or height of 0 gives one of 1x1; null for negative sizes and
// when there is no memory.
HBITMAP CreateCompatibleBitmap(HDC like, int width, int height);

// A brush of one colour, owned by the caller.
HBRUSH CreateSolidBrush(COLORREF color);

// A stock object, owned by the platform: BLACK_BRUSH. Null for any other number.
HGDIOBJ GetStockObject(int index);

// Selects a bitmap, brush, pen or font and gives the one that it replaces. Null and no change for anything
// else, for a bitmap in a window's device context, and for a bitmap that another device context holds.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

// Deletes an object. Deleting one that is selected takes effect when the last device context lets it go;
// deleting a stock object has no effect; both give TRUE. FALSE when there is no such object.
BOOL DeleteObject(HGDIOBJ object);

// Describes a bitmap into a BITMAP (bmBits is null) and gives the bytes written; 0 for anything else or a
// size below that of BITMAP.
int GetObjectA(HGDIOBJ object, int size, LPVOID result);

// LOGPIXELSY: 96 dots per inch, always. 0 for any other index.
int GetDeviceCaps(HDC dc, int index);

// Fills a rectangle, cut to the surface. An empty or reversed one fills nothing. Gives 1, or 0 on a bad
// handle.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);

// Copies a rectangle, cut to both surfaces; source and target may be the same surface and overlap. Only
// SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation);

// State of the device context for text. Each gives the former value (0xFFFFFFFF or 0 on a bad handle).
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF SetBkColor(HDC dc, COLORREF color);
int SetBkMode(HDC dc, int mode);

// number * numerator / denominator, the product in 64 bits, rounded to the nearest, halves away from zero. -1
// when the denominator is 0 or the result does not fit 32 bits.
int MulDiv(int number, int numerator, int denominator);
