// SPDX-License-Identifier: GPL-3.0-or-later
// Device-independent bitmaps: drawing them scaled, and reading a bitmap back into one. Called by the picture
// code. The scaling filter is in drawing/resample.h.
#pragma once

#include "platform/types.h"

constexpr DWORD BI_RGB = 0;
constexpr UINT DIB_RGB_COLORS = 0;

struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
static_assert(sizeof(RGBQUAD) == 4);

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight; // positive: the first row in memory is the bottom line
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed; // palette entries; 0 means 1 << biBitCount
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
static_assert(sizeof(BITMAPINFO) == 44);

// Draws a whole uncompressed bitmap of 1, 4, 8 or 24 bits per pixel, scaled to the target rectangle and
// clipped to the surface, and returns its number of rows. Rows of `bits` are padded to 4 bytes. A pixel whose
// index is beyond the palette is black.
//
// Returns 0 and draws nothing if the target width or height is below 1, and in the unsupported cases: a
// source rectangle other than the whole bitmap, top-down rows, a usage other than DIB_RGB_COLORS, an
// operation other than SRCCOPY.
int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation);

// Copies a bitmap into `bits` as 24 bits per pixel, bottom row first, rows padded to 4 bytes, and returns the
// number of rows. Returns 0 unless the header specifies 24 bits and the size of the bitmap, all rows are
// requested, and the usage is DIB_RGB_COLORS. `dc` is ignored.
int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstRow, UINT rows, void* bits, const BITMAPINFO* info,
              UINT usage);
