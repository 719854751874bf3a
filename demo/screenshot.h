// A picture of the virtual screen in memory:
// compared and searched by the tour and the
// end-to-end tests, written as PNG for people.
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

    // Pixels of the area for which the question is answered with yes. The area must lie on the picture.
    int count(const PixelArea& area, const std::function<bool(std::uint32_t)>& question) const;
    int countColour(const PixelArea& area, std::uint32_t colour) const;

    // Pixels of the area that differ; every pixel when the sizes differ.
    int countDifferences(const Screenshot& other, const PixelArea& area) const;
    bool operator==(const Screenshot& other) const = default;

    // False when the file cannot be written in full.
    bool writePng(const std::string& path) const;
};
