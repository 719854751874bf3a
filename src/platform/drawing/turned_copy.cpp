// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/turned_copy.h"

#include <algorithm>

namespace {

// Maps the turned picture to the original: where its first pixel comes from, and the steps in the original
// from row to row and from column to column, in pixels.
struct Turn {
    const std::uint32_t* origin;
    std::ptrdiff_t byRow;
    std::ptrdiff_t byColumn;
};

Turn turnOf(const PixelRows& picture, int rotation) {
    const std::ptrdiff_t lastRow = (picture.height - 1) * picture.stride;
    const std::ptrdiff_t lastColumn = picture.width - 1;
    switch (rotation) {
    case 90:
        return {picture.first + lastRow, 1, -picture.stride};
    case -90:
        return {picture.first + lastColumn, -1, picture.stride};
    case 180:
        return {picture.first + lastRow + lastColumn, -picture.stride, -1};
    default:
        return {picture.first, picture.stride, 1};
    }
}

constexpr std::ptrdiff_t rowsAhead = 8;

// Makes the processor load pixels of a row, which are to be written, into its cache.
void prefetch(const std::uint32_t* row, std::ptrdiff_t left, std::ptrdiff_t right) {
    constexpr int forWriting = 1;
    constexpr std::ptrdiff_t pixelsPerLine = 16; // of the cache
    for (std::ptrdiff_t column = left; column < right; column += pixelsPerLine) {
        __builtin_prefetch(row + column, forWriting);
    }
}

} // namespace

bool swapsSides(int rotation) {
    return rotation == 90 || rotation == -90;
}

void copyTurned(const PixelRows& picture, int rotation, Surface& surface, std::int64_t x, std::int64_t y) {
    const Turn turn = turnOf(picture, rotation);
    const bool swapped = swapsSides(rotation);
    const std::int64_t right = x + (swapped ? picture.height : picture.width);
    const std::int64_t bottom = y + (swapped ? picture.width : picture.height);
    const std::ptrdiff_t lastColumn = std::min<std::int64_t>(right, surface.width);
    const std::ptrdiff_t lastRow = std::min<std::int64_t>(bottom, surface.height);
    // A quarter turn goes through blocks, because the processor keeps track of only some dozens of rows at a
    // time. It also cannot foresee that the next row of a block follows, which is thus requested early.
    const std::ptrdiff_t blockRows = swapped ? 32 : surface.height;
    const std::ptrdiff_t blockColumns = swapped ? 128 : surface.width;
    for (std::ptrdiff_t top = std::max<std::ptrdiff_t>(y, 0); top < lastRow; top += blockRows) {
        for (std::ptrdiff_t left = std::max<std::ptrdiff_t>(x, 0); left < lastColumn; left += blockColumns) {
            const std::ptrdiff_t end = std::min(left + blockColumns, lastColumn);
            for (std::ptrdiff_t row = top; row < std::min(top + blockRows, lastRow); ++row) {
                const std::uint32_t* source =
                    turn.origin + (row - y) * turn.byRow + (left - x) * turn.byColumn;
                std::uint32_t* target = surface.row(static_cast<int>(row));
                if (swapped && row + rowsAhead < lastRow) {
                    prefetch(surface.row(static_cast<int>(row + rowsAhead)), left, end);
                }
                for (std::ptrdiff_t column = left; column < end; ++column, source += turn.byColumn) {
                    target[column] = *source;
                }
            }
        }
    }
    surface.changed = true;
}
