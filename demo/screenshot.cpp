// SPDX-License-Identifier: GPL-3.0-or-later
#include "screenshot.h"

#include <png.h>

std::uint32_t Screenshot::at(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
}

int Screenshot::count(const PixelArea& area, const std::function<bool(std::uint32_t)>& predicate) const {
    int result = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            result += predicate(at(x, y)) ? 1 : 0;
        }
    }
    return result;
}

int Screenshot::countColour(const PixelArea& area, std::uint32_t colour) const {
    return count(area, [colour](std::uint32_t pixel) { return pixel == colour; });
}

int Screenshot::countDifferences(const Screenshot& other, const PixelArea& area) const {
    if (width != other.width || height != other.height) {
        return (area.right - area.left) * (area.bottom - area.top);
    }
    int result = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            result += at(x, y) != other.at(x, y) ? 1 : 0;
        }
    }
    return result;
}

bool Screenshot::writePng(const std::string& path) const {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(pixels.size() * 3);
    for (std::uint32_t pixel : pixels) {
        for (int shift : {16, 8, 0}) {
            bytes.push_back(static_cast<std::uint8_t>(pixel >> shift & 0xFF));
        }
    }
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}
