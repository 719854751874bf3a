// SPDX-License-Identifier: GPL-3.0-or-later
// A screenshot of the virtual screen in memory. The tour and the end-to-end tests compare and search it, and
// save it as PNG.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct PixelArea {
    int left;
    int top;
    int right; // one past the last pixel, as is bottom
    int bottom;
};

struct Screenshot {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; // 0x00RRGGBB, row by row

    std::uint32_t at(int x, int y) const;
    PixelArea whole() const { return {0, 0, width, height}; }

    // Number of pixels in the area that satisfy the predicate. The area must be within the picture.
    int count(const PixelArea& area, const std::function<bool(std::uint32_t)>& predicate) const;
    int countColour(const PixelArea& area, std::uint32_t colour) const;

    // Number of pixels in the area that differ; all pixels if the sizes differ.
    int countDifferences(const Screenshot& other, const PixelArea& area) const;
    bool operator==(const Screenshot& other) const = default;

    // False on a write error.
    bool writePng(const std::string& path) const;
};
