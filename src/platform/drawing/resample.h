// SPDX-License-Identifier: GPL-3.0-or-later
// Picture scaling with a separable Catmull-Rom filter, widened by the factor of a reduction. Called by
// StretchDIBits, which interprets the bitmap header. Only the pixels on the surface are computed.
#pragma once

#include "platform/drawing/surface.h"

#include <array>
#include <cstddef>

// A picture of 1, 4, 8 or 24 bits per pixel, bottom row first; 24 bits are blue, green, red. Not owned.
struct PictureSource {
    const std::uint8_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    std::size_t stride = 0;                      // bytes per row
    std::array<std::uint32_t, 256> palette = {}; // 0x00RRGGBB, up to 8 bits per pixel
};

// The target rectangle in pixels, which may extend beyond the surface.
struct Placement {
    int x = 0;
    int y = 0;
    int width = 0;  // at least 1
    int height = 0; // at least 1
};

// Draws the picture scaled to the target rectangle and clipped to the surface.
void resample(const PictureSource& source, const Placement& place, Surface& target);
