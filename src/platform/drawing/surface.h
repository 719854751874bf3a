// SPDX-License-Identifier: GPL-3.0-or-later
// A pixel buffer, the target of all drawing operations: a bitmap or the client area of a window. Used by
// windows, device contexts and the compositor, inside the platform only.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

struct FreePixels {
    void operator()(std::uint32_t* pixels) const { std::free(pixels); }
};

// A rectangle in pixels; right and bottom are exclusive. 64-bit, so that sums of coordinates cannot overflow.
struct Area {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;
};

// Pixels are 0x00RRGGBB in native byte order, top row first, `width` pixels per row without padding. They are
// allocated with calloc, so pages that are never drawn into use no memory.
struct Surface {
    int width = 0;
    int height = 0;
    std::unique_ptr<std::uint32_t[], FreePixels> pixels;
    bool changed = false; // set by every drawing operation, cleared by the owner after presenting it

    // Resizes the surface and makes it black. Returns false and leaves it without pixels if a side is not in
    // 1 to 32767 or memory runs out.
    bool resize(int newWidth, int newHeight);

    // Sets every pixel of the area, clipped to the surface; an empty or reversed area sets none.
    void fill(const Area& area, std::uint32_t pixel);

    // Sets the unused byte of every pixel of the area to 0, because cairo leaves arbitrary values there when
    // it blends.
    void clearUnusedBytes(const Area& area);

    std::uint32_t* row(int y) const {
        return pixels.get() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
};

// Converts a COLORREF (0x00BBGGRR) to a pixel (0x00RRGGBB).
constexpr std::uint32_t pixelOf(COLORREF color) {
    return ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF);
}
