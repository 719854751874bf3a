// A small picture of big pixels, the playfield of a raster or lcd
// game, and the colours and sprites that are drawn from a game's
// name. Used by the scenes only; the window enlarges the picture.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

using Colour = std::uint32_t; // 0x00RRGGBB

struct PixelCanvas {
    PixelCanvas(int canvasWidth, int canvasHeight);

    // Fills the part of the rectangle that lies on the canvas.
    void fill(int left, int top, int rectWidth, int rectHeight, Colour colour);

    int width;
    int height;
    std::vector<Colour> pixels; // row by row, no padding
};

// The same name always gives the same number, on every machine.
std::uint32_t seedOfName(std::string_view name);

// A well-mixed number for each pair.
std::uint32_t mixed(std::uint32_t seed, std::uint32_t index);

// Hue 0 to 1 around the circle, saturation and brightness 0 to 1.
Colour colourOf(double hue, double saturation, double brightness);

// A creature of 9 by 8 cells, mirrored left to right, as the seed has it. It stands on two legs, which
// `step` 0 and 1 place differently. `cell` is the size of one cell in canvas pixels.
void drawCreature(PixelCanvas& canvas, int left, int top, int cell, std::uint32_t seed, int step, Colour body,
                  Colour eyes);
