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
    const std::ptrdiff_t block = swapped ? 32 : std::max<std::ptrdiff_t>(surface.width, surface.height);
    for (std::ptrdiff_t top = std::max<std::ptrdiff_t>(y, 0); top < lastRow; top += block) {
        for (std::ptrdiff_t left = std::max<std::ptrdiff_t>(x, 0); left < lastColumn; left += block) {
            const std::ptrdiff_t end = std::min(left + block, lastColumn);
            for (std::ptrdiff_t row = top; row < std::min(top + block, lastRow); ++row) {
                const std::uint32_t* source =
                    turn.origin + (row - y) * turn.byRow + (left - x) * turn.byColumn;
                std::uint32_t* target = surface.row(static_cast<int>(row));
                for (std::ptrdiff_t column = left; column < end; ++column, source += turn.byColumn) {
                    target[column] = *source;
                }
            }
        }
    }
    surface.changed = true;
}
