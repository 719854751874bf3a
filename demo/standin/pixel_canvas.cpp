// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/pixel_canvas.h"

#include <algorithm>
#include <cmath>

PixelCanvas::PixelCanvas(int canvasWidth, int canvasHeight)
    : width(canvasWidth), height(canvasHeight),
      pixels(static_cast<std::size_t>(canvasWidth) * static_cast<std::size_t>(canvasHeight)) {}

void PixelCanvas::fill(int left, int top, int rectWidth, int rectHeight, Colour colour) {
    int right = std::min(left + rectWidth, width);
    int bottom = std::min(top + rectHeight, height);
    left = std::max(left, 0);
    for (int y = std::max(top, 0); y < bottom && left < right; ++y) {
        std::fill_n(pixels.begin() + static_cast<std::ptrdiff_t>(y) * width + left, right - left, colour);
    }
}

std::uint32_t seedOfName(std::string_view name) {
    std::uint32_t seed = 2166136261u;
    for (char letter : name) {
        seed = mixed(seed, static_cast<unsigned char>(letter));
    }
    return seed;
}

std::uint32_t mixed(std::uint32_t seed, std::uint32_t index) {
    std::uint32_t value = seed + index * 0x9E3779B9u;
    value = (value ^ (value >> 16)) * 0x85EBCA6Bu;
    value = (value ^ (value >> 13)) * 0xC2B2AE35u;
    return value ^ (value >> 16);
}

Colour colourOf(double hue, double saturation, double brightness) {
    auto channel = [&](double shift) {
        double position = std::fmod(hue + shift, 1.0) * 6;
        double share = std::clamp(std::abs(position - 3) - 1, 0.0, 1.0);
        return static_cast<Colour>(255 * brightness * (1 - saturation * (1 - share)));
    };
    return channel(0) << 16 | channel(2.0 / 3) << 8 | channel(1.0 / 3);
}

void drawCreature(PixelCanvas& canvas, int left, int top, int cell, std::uint32_t seed, int step, Colour body,
                  Colour eyes) {
    for (int row = 0; row < 7; ++row) {
        for (int column = 0; column < 5; ++column) {
            bool core = column >= 3 && row >= 1 && row <= 5;
            bool set = core || (mixed(seed, static_cast<std::uint32_t>(row * 5 + column)) & 1u) != 0;
            if (!set) {
                continue;
            }
            canvas.fill(left + column * cell, top + row * cell, cell, cell, body);
            canvas.fill(left + (8 - column) * cell, top + row * cell, cell, cell, body);
        }
    }
    int foot = step == 0 ? 1 : 3;
    canvas.fill(left + foot * cell, top + 7 * cell, cell, cell, body);
    canvas.fill(left + (8 - foot) * cell, top + 7 * cell, cell, cell, body);
    canvas.fill(left + 3 * cell, top + 2 * cell, cell, cell, eyes);
    canvas.fill(left + 5 * cell, top + 2 * cell, cell, cell, eyes);
}
