// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/surface.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int maxSide = 32767;

struct PixelArea {
    int left;
    int top;
    int right;
    int bottom;
};

PixelArea clip(const Area& area, int width, int height) {
    const auto within = [](std::int64_t place, int size) {
        return static_cast<int>(std::clamp<std::int64_t>(place, 0, size));
    };
    return {within(area.left, width), within(area.top, height), within(area.right, width),
            within(area.bottom, height)};
}

} // namespace

bool Surface::resize(int newWidth, int newHeight) {
    pixels.reset();
    width = 0;
    height = 0;
    changed = true;
    if (newWidth < 1 || newHeight < 1 || newWidth > maxSide || newHeight > maxSide) {
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
    const auto [left, top, right, bottom] = clip(area, width, height);
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

void Surface::clearUnusedBytes(const Area& area) {
    const auto [left, top, right, bottom] = clip(area, width, height);
    for (int y = top; y < bottom; ++y) {
        std::uint32_t* line = row(y);
        for (int x = left; x < right; ++x) {
            line[x] &= 0x00FFFFFF;
        }
    }
}
