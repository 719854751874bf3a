#include "platform/surface.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int largestSide = 32767;

} // namespace

bool Surface::resize(int newWidth, int newHeight) {
    pixels.reset();
    width = 0;
    height = 0;
    changed = true;
    if (newWidth < 1 || newHeight < 1 || newWidth > largestSide || newHeight > largestSide) {
        return false;
    }
    const std::size_t count = static_cast<std::size_t>(newWidth) * static_cast<std::size_t>(newHeight);
    pixels.reset(static_cast<std::uint32_t*>(std::calloc(count, sizeof(std::uint32_t))));
    if (!pixels) {
        return false;
    }
    width = newWidth;
    height = newHeight;
    return true;
}

void Surface::fill(const Area& area, std::uint32_t pixel) {
    const int left = static_cast<int>(std::clamp<std::int64_t>(area.left, 0, width));
    const int top = static_cast<int>(std::clamp<std::int64_t>(area.top, 0, height));
    const int right = static_cast<int>(std::clamp<std::int64_t>(area.right, 0, width));
    const int bottom = static_cast<int>(std::clamp<std::int64_t>(area.bottom, 0, height));
    if (left >= right || top >= bottom) {
        return;
    }
    std::uint32_t* first = row(top) + left;
    std::fill(first, row(top) + right, pixel);
    for (int y = top + 1; y < bottom; ++y) {
        std::memcpy(row(y) + left, first, static_cast<std::size_t>(right - left) * sizeof(pixel));
    }
    changed = true;
}
