// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the pixels of a decoded picture to the current rotation, clockwise, and resizes pictures that are too
// large to be turned in full size. Called by pictures.cpp, which stretches the result onto the frame.
#pragma once

#include "png/png_dib.h"

// Does nothing at rotation 0. Otherwise sets `pixels` to a separate block, which the caller frees with
// GlobalFree, and updates the size in the header; the header and palette stay in `dib`. Sets `pixels` to null
// when out of memory.
void rotateDib(PngDibParams* picture);

// Replaces the decoded block with a 24-bit copy of the picture stretched to the given size in pixels. Returns
// 0 and sets `dib` to null when out of memory or when a side is below 1.
int resizeDib(HDC dc, PngDibParams* picture, int width, int height);
