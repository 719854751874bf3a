// SPDX-License-Identifier: GPL-3.0-or-later
// Filling rectangles and copying between device contexts. Called by everything that draws. All device
// contexts share one 32-bit pixel format, so copies never convert. Outlines are drawn by shapes.h, pictures
// by stretch.h, text by text.h.
#pragma once

#include "platform/types.h"

constexpr DWORD SRCCOPY = 0x00CC0020;

// Fills a rectangle, clipped to the surface; an empty or reversed one fills nothing. `brush` must be a solid
// brush. Returns 1, or 0 for a bad handle.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);

// Copies a rectangle, clipped to both surfaces. Source and target may overlap on the same surface. Returns
// FALSE for a bad handle or any operation other than SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation);

// Copies a rectangle, turned by a multiple of 90 degrees and clipped to the target. `corners` are the
// positions of its upper left, upper right and lower left corner in the target. The rectangle must lie on the
// source, on another surface than the target. Returns FALSE for a bad handle, a mask, and corners that would
// scale, mirror or shear.
BOOL PlgBlt(HDC target, const POINT* corners, HDC source, int sourceX, int sourceY, int width, int height,
            HBITMAP mask, int maskX, int maskY);

// Returns number * numerator / denominator, computed in 64 bits and rounded to the nearest integer, halves
// away from zero; -1 if the denominator is 0 or the result does not fit in 32 bits.
int MulDiv(int number, int numerator, int denominator);
