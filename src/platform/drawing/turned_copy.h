// SPDX-License-Identifier: GPL-3.0-or-later
// Copies pixels turned by a multiple of 90 degrees. Used by PlgBlt and by the movie players.
#pragma once

#include "platform/drawing/surface.h"

#include <cstddef>
#include <cstdint>

// True for 90 and -90 degrees, which swap width and height.
bool swapsSides(int rotation);

// A picture to be copied: rows of `width` pixels, `stride` pixels apart.
struct PixelRows {
    const std::uint32_t* first;
    int width;
    int height;
    std::ptrdiff_t stride;
};

// Copies the picture, turned clockwise by 0, 90, -90 or 180 degrees, to where its top left corner is then at
// (x, y); clipped to the surface.
void copyTurned(const PixelRows& picture, int rotation, Surface& surface, std::int64_t x, std::int64_t y);
