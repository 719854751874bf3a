// Turns the pixels of a decoded picture to the rotation in
// force, and reduces those that are too large for a second
// block. Called by the drawing of pictures, which stretches
// what comes out; the rotation turns the screen clockwise.
#pragma once

#include "platform/drawing.h"
#include "png/png_dib.h"

// At 0 nothing changes. Otherwise the pixels come to lie in a block of their own, which the caller releases
// with GlobalFree, and the header gets the new size; the decoded block stays with what else it holds.
// `pixels` becomes null when the new block cannot be had.
void rotateDib(PngDibParams* picture);

// Replaces the decoded block by one of 24 bits that holds the picture stretched to the given size. 0, and
// `dib` null, without memory or with a size below 1.
int resizeDib(HDC dc, PngDibParams* picture, int width, int height);
