// Turns the pixels of a decoded picture to the rotation in
// force. Called by the drawing of pictures, which stretches
// what comes out; the rotation turns the screen clockwise.
#pragma once

#include "png/png_dib.h"

// At 0 nothing changes. Otherwise the pixels come to lie in a block of their own, which the caller releases
// with GlobalFree, and the header gets the new size; the decoded block stays with what else it holds.
// `pixels` becomes null when the new block cannot be had.
void rotateDib(PngDibParams* picture);
