// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of low resolution for raster and lcd games, and colours and sprites derived from a game's name.
// Used by the scenes and the art; the game window enlarges the picture.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

using Colour = std::uint32_t; // 0x00RRGGBB

struct PixelCanvas {
    PixelCanvas(int canvasWidth, int canvasHeight);

    // Fills the rectangle, clipped to the canvas.
    void fill(int left, int top, int rectWidth, int rectHeight, Colour colour);

    int width;
    int height;
    std::vector<Colour> pixels; // row by row, no padding
};

// Depends on the name only, the same on every machine.
std::uint32_t seedOfName(std::string_view name);

// A hash of both numbers.
std::uint32_t mixed(std::uint32_t seed, std::uint32_t index);

// Hue 0 to 1 around the circle, saturation and brightness 0 to 1.
Colour colourOf(double hue, double saturation, double brightness);

// A symmetric creature of 9 by 8 cells with two legs, its shape derived from the seed. `step` 0 or 1 selects
// the position of the legs. `cell` is the size of one cell in canvas pixels.
void drawCreature(PixelCanvas& canvas, int left, int top, int cell, std::uint32_t seed, int step, Colour body,
                  Colour eyes);
