// Fills and copies between device contexts. Called by everything that draws. One 32-bit pixel format serves
// everywhere. Outlines are drawn by shapes.h, pictures by stretch.h, text by text.h.
#pragma once

#include "platform/types.h"

constexpr DWORD SRCCOPY = 0x00CC0020;

// Fills a rectangle, cut to the surface. An empty or reversed one fills nothing. Gives 1, or 0 on a bad
// handle.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);

// Copies a rectangle, cut to both surfaces; source and target may be the same surface and overlap. Only
// SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation);

// number * numerator / denominator, the product in 64 bits, rounded to the nearest, halves away from zero. -1
// when the denominator is 0 or the result does not fit 32 bits.
int MulDiv(int number, int numerator, int denominator);
