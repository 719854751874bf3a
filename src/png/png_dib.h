// Reads a PNG file into a device-independent bitmap: one block with header, palette and pixels from the
// bottom up, ready for StretchDIBits. Called by the drawing of pictures. Nothing is kept between calls and
// nothing is reported but by the result.
#pragma once

#include "platform/stretch.h"

enum PngDibResult : int {
    pngDibSuccess = 0,
    pngDibWrongSize = 2,
    pngDibOutOfMemory = 3,
    pngDibDamaged = 5, // no PNG, or one that cannot be read to its end
    pngDibUnknownColorType = 7,
    pngDibCannotOpen = 8,
};

// What `size` must be: the size of the block with 32-bit pointers, on every machine.
constexpr DWORD pngDibParamsSize = 40;

// The caller zeroes the block and sets the first three fields; the rest is valid after pngDibSuccess only.
struct PngDibParams {
    DWORD size;
    DWORD reserved;
    const char* fileName; // the caller's
    void* dib;            // the block, to be released by the caller with GlobalFree
    DWORD dibSize;        // bytes of the block
    DWORD headerSize;     // 40
    DWORD pixelOffset;    // bytes from the start of the block to the pixels
    RGBQUAD* palette;     // inside the block, behind the header
    DWORD paletteCount;   // entries, 0 for 24 bits
    BYTE* pixels;         // inside the block: the bottom line of the picture
};

// Gives a PngDibResult. Alpha is dropped and 16-bit samples are cut to 8.
int pngToDib(PngDibParams* params);
