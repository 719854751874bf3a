// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/picture_turn.h"

#include "config/settings.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/memory.h"
#include "render/primitives.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Maps pixels of the turned picture to the original: row r and column c come from column
// x + r * xByRow + c * xByColumn and row y + r * yByRow + c * yByColumn. Rows count from the bottom.
struct Turn {
    std::ptrdiff_t x;
    std::ptrdiff_t xByRow;
    std::ptrdiff_t xByColumn;
    std::ptrdiff_t y;
    std::ptrdiff_t yByRow;
    std::ptrdiff_t yByColumn;
};

Turn turnOf(std::int32_t rotation, std::ptrdiff_t width, std::ptrdiff_t height) {
    switch (rotation) {
    case 90:
        return {width - 1, -1, 0, 0, 0, 1};
    case -90:
        return {0, 1, 0, height - 1, 0, -1};
    default:
        return {width - 1, 0, -1, height - 1, -1, 0};
    }
}

struct Pixels {
    BYTE* first;
    std::ptrdiff_t width;
    std::ptrdiff_t height;
    std::ptrdiff_t stride; // bytes from row to row
};

std::ptrdiff_t strideOf(std::ptrdiff_t width, int bitsPerPixel) {
    return (width * bitsPerPixel + 31) / 32 * 4;
}

// At a quarter turn, rows of the result are columns of the source. The result is filled in strips of a few
// columns, because the processor prefetches from only a few source rows at a time. At 180 both are processed
// row by row.
template <int pixelBytes> void turnWholeBytes(const Pixels& from, const Pixels& to, const Turn& turn) {
    const std::ptrdiff_t byRow = turn.xByRow * pixelBytes + turn.yByRow * from.stride;
    const std::ptrdiff_t byColumn = turn.xByColumn * pixelBytes + turn.yByColumn * from.stride;
    const BYTE* origin = from.first + turn.x * pixelBytes + turn.y * from.stride;
    constexpr std::ptrdiff_t prefetchedRows = 16;
    const std::ptrdiff_t strip = turn.xByColumn != 0 ? to.width : prefetchedRows;
    for (std::ptrdiff_t left = 0; left < to.width; left += strip) {
        const std::ptrdiff_t right = std::min(left + strip, to.width);
        for (std::ptrdiff_t row = 0; row < to.height; ++row) {
            const BYTE* source = origin + row * byRow + left * byColumn;
            BYTE* target = to.first + row * to.stride + left * pixelBytes;
            for (std::ptrdiff_t column = left; column < right; ++column) {
                std::memcpy(target, source, pixelBytes);
                source += byColumn;
                target += pixelBytes;
            }
        }
    }
}

// For 1 and 4 bits per pixel. The target must be all zero.
void turnBits(const Pixels& from, const Pixels& to, const Turn& turn, int bits) {
    const std::ptrdiff_t perByte = 8 / bits;
    const int mask = (1 << bits) - 1;
    const auto shiftOf = [=](std::ptrdiff_t x) { return bits * static_cast<int>(perByte - 1 - x % perByte); };
    for (std::ptrdiff_t row = 0; row < to.height; ++row) {
        BYTE* target = to.first + row * to.stride;
        for (std::ptrdiff_t column = 0; column < to.width; ++column) {
            const std::ptrdiff_t x = turn.x + row * turn.xByRow + column * turn.xByColumn;
            const std::ptrdiff_t y = turn.y + row * turn.yByRow + column * turn.yByColumn;
            const int value = from.first[y * from.stride + x / perByte] >> shiftOf(x) & mask;
            BYTE& cell = target[column / perByte];
            cell = static_cast<BYTE>(cell | value << shiftOf(column));
        }
    }
}

} // namespace

void rotateDib(PngDibParams* picture) {
    const std::int32_t rotation = settings.orientation;
    if (!isQuarterTurn(rotation) && rotation != 180) {
        return;
    }
    auto* header = static_cast<BITMAPINFOHEADER*>(picture->dib);
    const int bits = header->biBitCount;
    const Pixels from = {picture->pixels, header->biWidth, header->biHeight, strideOf(header->biWidth, bits)};
    Pixels to = from;
    if (isQuarterTurn(rotation)) {
        std::swap(to.width, to.height);
        to.stride = strideOf(to.width, bits);
    }
    const std::ptrdiff_t size = to.stride * to.height;
    to.first = static_cast<BYTE*>(GlobalAlloc(GPTR, static_cast<std::size_t>(size)));
    picture->pixels = to.first;
    if (!to.first) {
        return;
    }
    const Turn turn = turnOf(rotation, from.width, from.height);
    if (bits == 24) {
        turnWholeBytes<3>(from, to, turn);
    } else if (bits == 8) {
        turnWholeBytes<1>(from, to, turn);
    } else {
        turnBits(from, to, turn, bits);
    }
    header->biWidth = static_cast<LONG>(to.width);
    header->biHeight = static_cast<LONG>(to.height);
    header->biSizeImage = static_cast<DWORD>(size);
}

int resizeDib(HDC dc, PngDibParams* picture, int width, int height) {
    const auto* from = static_cast<const BITMAPINFO*>(picture->dib);
    const HDC canvas = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, width, height);
    const HGDIOBJ previous = SelectObject(canvas, bitmap);
    const int drawn = StretchDIBits(canvas, 0, 0, width, height, 0, 0, from->bmiHeader.biWidth,
                                    from->bmiHeader.biHeight, picture->pixels, from, DIB_RGB_COLORS, SRCCOPY);
    GlobalFree(picture->dib);
    *picture = {};
    constexpr DWORD headerBytes = sizeof(BITMAPINFOHEADER);
    const auto pixelBytes = static_cast<DWORD>(strideOf(width, 24) * height);
    auto* block =
        drawn == 0 ? nullptr : static_cast<BYTE*>(GlobalAlloc(GPTR, std::size_t{headerBytes} + pixelBytes));
    if (block) {
        *reinterpret_cast<BITMAPINFOHEADER*>(block) = {headerBytes, width, height, 1, 24, BI_RGB,
                                                       pixelBytes,  0,     0,      0, 0};
        *picture = {pngDibParamsSize, 0,           nullptr, block, headerBytes + pixelBytes,
                    headerBytes,      headerBytes, nullptr, 0,     block + headerBytes};
        GetDIBits(canvas, bitmap, 0, static_cast<UINT>(height), picture->pixels,
                  reinterpret_cast<BITMAPINFO*>(block), DIB_RGB_COLORS);
    }
    SelectObject(canvas, previous);
    DeleteObject(bitmap);
    DeleteDC(canvas);
    return block ? 1 : 0;
}
