// A block of pixels, the one thing that is drawn into: the
// client area of a window or a bitmap. Inside the platform
// only: shared by windows, device contexts and the compositor.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

struct FreePixels {
    void operator()(std::uint32_t* pixels) const { std::free(pixels); }
};

// A rectangle in pixels; right and bottom lie just outside. Wide enough that no sum of coordinates overflows.
struct Area {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;
};

// Pixels are 0x00RRGGBB in native byte order, rows from the top, `width` pixels a row. Zeroed pages that
// nobody draws into cost no memory.
struct Surface {
    int width = 0;
    int height = 0;
    std::unique_ptr<std::uint32_t[], FreePixels> pixels;
    bool changed = false; // set by every drawing operation, cleared by whoever shows the surface

    // Makes the surface black and of the given size (each 1 to 32767); false, and no pixels, without memory.
    bool resize(int newWidth, int newHeight);

    // Sets every pixel of the area, cut to the surface; an empty or reversed area sets none.
    void fill(const Area& area, std::uint32_t pixel);

    // Sets the unused byte of every pixel of the area to 0: the drawing library leaves something there when
    // it blends.
    void clearUnusedBytes(const Area& area);

    std::uint32_t* row(int y) const {
        return pixels.get() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
};

// 0x00BBGGRR to 0x00RRGGBB.
constexpr std::uint32_t pixelOf(COLORREF color) {
    return ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF);
}
