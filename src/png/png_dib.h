// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes a PNG file into a device-independent bitmap: one memory block with header, palette and bottom-up
// pixel rows, ready for StretchDIBits. Called by render/pictures.cpp. Keeps no state between calls; errors
// are reported only through the result.
#pragma once

#include "platform/stretch.h"

enum PngDibResult : int {
    pngDibSuccess = 0,
    pngDibWrongSize = 2,
    pngDibOutOfMemory = 3, // also: larger than the limits in png_dib.cpp
    pngDibDamaged = 5,     // not a PNG file, or one that cannot be read to its end
    pngDibUnknownColorType = 7,
    pngDibCannotOpen = 8,
};

// The required value of `size`: the size of the record with 32-bit pointers, on every machine.
constexpr DWORD pngDibParamsSize = 40;

// The caller zeroes the record and sets the first three fields. The other fields are valid only after
// pngDibSuccess.
struct PngDibParams {
    DWORD size;
    DWORD reserved;
    const char* fileName; // borrowed
    void* dib;            // the block; the caller releases it with GlobalFree
    DWORD dibSize;        // bytes of the block
    DWORD headerSize;     // 40
    DWORD pixelOffset;    // bytes from the start of the block to the pixels
    RGBQUAD* palette;     // inside the block, directly after the header
    DWORD paletteCount;   // entries; 0 for 24 bits per pixel
    BYTE* pixels;         // inside the block: the bottom row of the picture
};

// Returns a PngDibResult. The alpha channel is dropped and 16-bit samples are reduced to 8 bits.
int pngToDib(PngDibParams* params);
