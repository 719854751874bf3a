// SPDX-License-Identifier: GPL-3.0-or-later
#include "photograph.h"

#include <benchmark/benchmark.h>
#include <png.h>

#include <cmath>
#include <cstdio>
#include <vector>

void writePhotograph(const std::string& path, unsigned width, unsigned height, unsigned seed) {
    std::vector<png_byte> pixels;
    unsigned noise = seed;
    for (unsigned i = 0; i < width * height; ++i) {
        const double x = static_cast<double>(i % width) / 97;
        const double y = static_cast<double>(i / width) / 61;
        for (int channel = 0; channel < 3; ++channel) {
            noise = noise * 1664525 + 1013904223;
            const double wave = std::sin(x + channel + seed) + std::cos(y * 1.3 - x + channel * 0.7);
            pixels.push_back(static_cast<png_byte>(128 + 55 * wave + static_cast<int>(noise >> 28)));
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr);
    png_image_free(&image);
}

void decodeBare(const std::string& path) {
    FILE* file = std::fopen(path.c_str(), "rb");
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    png_read_info(png, info);
    const std::size_t stride = png_get_rowbytes(png, info);
    std::vector<png_byte> pixels(stride * png_get_image_height(png, info));
    std::vector<png_bytep> rows;
    for (std::size_t offset = 0; offset < pixels.size(); offset += stride) {
        rows.push_back(&pixels[offset]);
    }
    png_read_image(png, rows.data());
    png_read_end(png, nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
    std::fclose(file);
    benchmark::DoNotOptimize(pixels.data());
}
