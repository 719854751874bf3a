// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/turned_copy.h"

#include <algorithm>
#include <array>
#include <cstring>

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

// The part of the surface, in pixels, that is copied at once.
struct Block {
    std::ptrdiff_t left;
    std::ptrdiff_t top;
    std::ptrdiff_t right;
    std::ptrdiff_t bottom;
};

// The loops of neighbouring pixels are separate, because the compiler uses vector instructions for those
// only.
void copyRow(const std::uint32_t* source, std::ptrdiff_t step, std::uint32_t* target, std::ptrdiff_t count) {
    if (step == 1) {
        std::copy_n(source, count, target);
    } else if (step == -1) {
        std::reverse_copy(source - count + 1, source + 1, target);
    } else {
        for (std::ptrdiff_t i = 0; i < count; ++i, source += step) {
            target[i] = *source;
        }
    }
}

using FourPixels = std::uint32_t __attribute__((vector_size(16)));
constexpr std::ptrdiff_t tileSide = 4;
constexpr std::ptrdiff_t rowsAhead = 8;

FourPixels load(const std::uint32_t* pixels) {
    FourPixels loaded;
    std::memcpy(&loaded, pixels, sizeof(loaded));
    return loaded;
}

// Copies a square of 4 by 4 pixels at a quarter turn. `targets` are the rows of its pixels, in the order of
// the source's columns.
void copyTile(const std::uint32_t* source, std::ptrdiff_t byColumn, std::uint32_t* const* targets,
              std::ptrdiff_t left) {
    const FourPixels first = load(source);
    const FourPixels second = load(source + byColumn);
    const FourPixels third = load(source + 2 * byColumn);
    const FourPixels fourth = load(source + 3 * byColumn);
    const FourPixels evenLow = __builtin_shufflevector(first, second, 0, 4, 1, 5);
    const FourPixels oddLow = __builtin_shufflevector(third, fourth, 0, 4, 1, 5);
    const FourPixels evenHigh = __builtin_shufflevector(first, second, 2, 6, 3, 7);
    const FourPixels oddHigh = __builtin_shufflevector(third, fourth, 2, 6, 3, 7);
    const std::array<FourPixels, tileSide> turned = {
        __builtin_shufflevector(evenLow, oddLow, 0, 1, 4, 5),
        __builtin_shufflevector(evenLow, oddLow, 2, 3, 6, 7),
        __builtin_shufflevector(evenHigh, oddHigh, 0, 1, 4, 5),
        __builtin_shufflevector(evenHigh, oddHigh, 2, 3, 6, 7),
    };
    for (std::size_t i = 0; i < turned.size(); ++i) {
        std::memcpy(targets[i] + left, &turned[i], sizeof(FourPixels));
    }
}

// Makes the processor load the pixels of a row, which are to be written, into its cache. It cannot foresee
// that the next row of a block follows.
void prefetch(const Surface& surface, std::ptrdiff_t row, std::ptrdiff_t left, std::ptrdiff_t right) {
    constexpr int forWriting = 1;
    constexpr std::ptrdiff_t pixelsPerLine = 16; // of the cache
    if (row < surface.height) {
        for (std::ptrdiff_t column = left; column < right; column += pixelsPerLine) {
            __builtin_prefetch(surface.row(static_cast<int>(row)) + column, forWriting);
        }
    }
}

// Copies the block, whose first pixel comes from `source`.
void copyRows(const std::uint32_t* source, const Turn& turn, Surface& surface, const Block& block) {
    for (std::ptrdiff_t row = block.top; row < block.bottom; ++row, source += turn.byRow) {
        copyRow(source, turn.byColumn, surface.row(static_cast<int>(row)) + block.left,
                block.right - block.left);
    }
}

// Likewise, for a quarter turn.
void copyTiles(const std::uint32_t* source, const Turn& turn, Surface& surface, const Block& block) {
    const std::ptrdiff_t tiledRight = block.right - (block.right - block.left) % tileSide;
    std::ptrdiff_t row = block.top;
    for (; row + tileSide <= block.bottom; row += tileSide, source += tileSide * turn.byRow) {
        std::array<std::uint32_t*, tileSide> targets{};
        for (std::ptrdiff_t i = 0; i < tileSide; ++i) {
            const std::ptrdiff_t sourceOrder = turn.byRow > 0 ? i : tileSide - 1 - i;
            targets[static_cast<std::size_t>(i)] = surface.row(static_cast<int>(row + sourceOrder));
            prefetch(surface, row + i + rowsAhead, block.left, block.right);
        }
        const std::uint32_t* tile = turn.byRow > 0 ? source : source - (tileSide - 1);
        for (std::ptrdiff_t left = block.left; left < tiledRight; left += tileSide) {
            copyTile(tile, turn.byColumn, targets.data(), left);
            tile += tileSide * turn.byColumn;
        }
        copyRows(source + (tiledRight - block.left) * turn.byColumn, turn, surface,
                 {tiledRight, row, block.right, row + tileSide});
    }
    copyRows(source, turn, surface, {block.left, row, block.right, block.bottom});
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
    // time.
    const std::ptrdiff_t blockRows = swapped ? 32 : surface.height;
    const std::ptrdiff_t blockColumns = swapped ? 128 : surface.width;
    for (std::ptrdiff_t top = std::max<std::ptrdiff_t>(y, 0); top < lastRow; top += blockRows) {
        for (std::ptrdiff_t left = std::max<std::ptrdiff_t>(x, 0); left < lastColumn; left += blockColumns) {
            const std::uint32_t* source = turn.origin + (top - y) * turn.byRow + (left - x) * turn.byColumn;
            const Block block = {left, top, std::min(left + blockColumns, lastColumn),
                                 std::min(top + blockRows, lastRow)};
            (swapped ? copyTiles : copyRows)(source, turn, surface, block);
        }
    }
    surface.changed = true;
}
