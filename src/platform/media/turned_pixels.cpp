#include "platform/media/turned_pixels.h"

#include <algorithm>
#include <cstddef>

bool swapsSides(int rotation) {
    return rotation == 90 || rotation == -90;
}

void turnByQuarter(const std::uint32_t* picture, int rotation, Surface& surface) {
    const std::ptrdiff_t width = surface.height; // of the picture
    const std::ptrdiff_t height = surface.width;
    // A row of the surface is a column of the picture, from the bottom up at 90 and from the right one to the
    // left one at -90.
    const std::uint32_t* origin = rotation == 90 ? picture + (height - 1) * width : picture + width - 1;
    const std::ptrdiff_t byRow = rotation == 90 ? 1 : -1;
    const std::ptrdiff_t byColumn = rotation == 90 ? -width : width;
    // In strips of columns that fill a cache line, because the processor prefetches from only a few rows of
    // the picture at a time.
    constexpr std::ptrdiff_t strip = 16;
    for (std::ptrdiff_t left = 0; left < height; left += strip) {
        const std::ptrdiff_t right = std::min(left + strip, height);
        for (std::ptrdiff_t row = 0; row < width; ++row) {
            const std::uint32_t* source = origin + row * byRow + left * byColumn;
            std::uint32_t* target = surface.row(static_cast<int>(row));
            for (std::ptrdiff_t column = left; column < right; ++column, source += byColumn) {
                target[column] = *source;
            }
        }
    }
}
