// Device-independent bitmaps, and the operations that draw
// them and read them back. Called by the pictures. The filter
// that reduces and enlarges stands in resample.h.
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
    DWORD biClrUsed; // entries of the palette; 0 means as many as the bits can tell apart
    DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
static_assert(sizeof(BITMAPINFO) == 44);

// Draws a whole bitmap of 1, 4, 8 or 24 bits a pixel, stretched to the target rectangle and cut to the
// surface, and gives the number of its rows; a pixel beyond the palette is black. A target size below 1 draws
// nothing and gives 0, as does everything that is not offered: a source other than the whole bitmap, rows
// from the top, a usage other than DIB_RGB_COLORS, an operation other than SRCCOPY. Rows of `bits` are padded
// to 4 bytes.
int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD operation);

// Copies a bitmap into `bits`, as 24 bits a pixel with rows from the bottom padded to 4 bytes, and gives the
// number of its rows. 0 unless the header says 24 bits and the size of the bitmap, all rows are asked for,
// and the usage is DIB_RGB_COLORS.
int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstRow, UINT rows, void* bits, const BITMAPINFO* info,
              UINT usage);
