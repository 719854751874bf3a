// The filter that reduces and enlarges pictures: Catmull-Rom, widened by the factor of a reduction, rows
// first and then columns. Called by StretchDIBits. It draws only what lies on the surface and knows nothing
// of device contexts or bitmap headers.
#pragma once

#include "platform/drawing/surface.h"

#include <array>
#include <cstddef>

// A picture of 1, 4, 8 or 24 bits a pixel, rows from the bottom up; 24 bits are blue, green, red.
struct PictureSource {
    const std::uint8_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    std::size_t stride = 0;                      // bytes from row to row
    std::array<std::uint32_t, 256> palette = {}; // 0x00RRGGBB, for 8 bits and fewer
};

// Where the picture goes. Any part may lie outside of the surface.
struct Placement {
    int x = 0;
    int y = 0;
    int width = 0;  // at least 1
    int height = 0; // at least 1
};

void resample(const PictureSource& source, const Placement& place, Surface& target);
