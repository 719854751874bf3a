// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/picture.h"

#include "standin/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <numbers>
#include <png.h>
#include <unordered_map>
#include <vector>

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

// Higher levels take much longer for gradients and hardly reduce the size.
constexpr int compressionLevel = 1;
constexpr std::size_t largestPalette = 256;

struct PixelBytes {
    std::vector<png_byte> bytes; // rows without padding
    std::vector<png_color> palette;
    std::size_t stride = 0;
};

png_byte channel(std::uint32_t pixel, int shift) {
    return static_cast<png_byte>(pixel >> shift & 0xFF);
}

const std::uint32_t* rowOf(cairo_surface_t* surface, int y) {
    return static_cast<const std::uint32_t*>(
        static_cast<const void*>(cairo_image_surface_get_data(surface) +
                                 static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface)));
}

// False when the picture has too many colours.
bool toPalette(cairo_surface_t* surface, int width, int height, PixelBytes& result) {
    std::unordered_map<std::uint32_t, png_byte> indices;
    result.stride = static_cast<std::size_t>(width);
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* row = rowOf(surface, y);
        for (int x = 0; x < width; ++x) {
            std::uint32_t pixel = row[x] & 0xFFFFFF;
            auto [place, isNew] = indices.try_emplace(pixel, static_cast<png_byte>(indices.size()));
            if (indices.size() > largestPalette) {
                return false;
            }
            if (isNew) {
                result.palette.push_back({channel(pixel, 16), channel(pixel, 8), channel(pixel, 0)});
            }
            result.bytes.push_back(place->second);
        }
    }
    return true;
}

void toChannels(cairo_surface_t* surface, int width, int height, PixelBytes& result) {
    result = {};
    result.stride = static_cast<std::size_t>(width) * 3;
    result.bytes.reserve(result.stride * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* row = rowOf(surface, y);
        for (int x = 0; x < width; ++x) {
            for (int shift : {16, 8, 0}) {
                result.bytes.push_back(channel(row[x], shift));
            }
        }
    }
}

// Has no locals with destructors, since libpng leaves it by longjmp when a write fails.
bool encode(std::FILE* file, const PixelBytes& pixels, int width, int height) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png)) != 0) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    bool indexed = !pixels.palette.empty();
    png_init_io(png, file);
    png_set_compression_level(png, compressionLevel);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, indexed ? PNG_FILTER_NONE : PNG_FILTER_UP);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
                 indexed ? PNG_COLOR_TYPE_PALETTE : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    if (indexed) {
        png_set_PLTE(png, info, pixels.palette.data(), static_cast<int>(pixels.palette.size()));
    }
    png_write_info(png, info);
    for (int y = 0; y < height; ++y) {
        png_write_row(png, pixels.bytes.data() + static_cast<std::size_t>(y) * pixels.stride);
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return true;
}

void addStops(cairo_t* context, cairo_pattern_t* pattern, std::initializer_list<GradientStop> stops) {
    for (const GradientStop& stop : stops) {
        cairo_pattern_add_color_stop_rgba(pattern, stop.place, stop.tint.red, stop.tint.green, stop.tint.blue,
                                          stop.alpha);
    }
    cairo_set_source(context, pattern);
    cairo_pattern_destroy(pattern);
}

} // namespace

Tint tintOf(double hue, double saturation, double brightness) {
    double turned = hue - std::floor(hue);
    auto share = [&](double shift) {
        double position = std::fmod(turned + shift, 1.0) * 6;
        return brightness * (1 - saturation * (1 - std::clamp(std::abs(position - 3) - 1, 0.0, 1.0)));
    };
    return {share(0), share(2.0 / 3), share(1.0 / 3)};
}

Tint blended(Tint from, Tint to, double share) {
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

void setTint(cairo_t* context, Tint tint, double alpha) {
    cairo_set_source_rgba(context, tint.red, tint.green, tint.blue, alpha);
}

void setLinear(cairo_t* context, Point from, Point to, std::initializer_list<GradientStop> stops) {
    addStops(context, cairo_pattern_create_linear(from.x, from.y, to.x, to.y), stops);
}

void setRadial(cairo_t* context, Point centre, double radius, std::initializer_list<GradientStop> stops) {
    addStops(context, cairo_pattern_create_radial(centre.x, centre.y, 0, centre.x, centre.y, radius), stops);
}

void addCircle(cairo_t* context, double x, double y, double radius) {
    cairo_new_sub_path(context);
    cairo_arc(context, x, y, radius, 0, fullTurn);
    cairo_close_path(context);
}

void addRoundedBox(cairo_t* context, double x, double y, double width, double height, double corner) {
    cairo_new_sub_path(context);
    cairo_arc(context, x + width - corner, y + corner, corner, -fullTurn / 4, 0);
    cairo_arc(context, x + width - corner, y + height - corner, corner, 0, fullTurn / 4);
    cairo_arc(context, x + corner, y + height - corner, corner, fullTurn / 4, fullTurn / 2);
    cairo_arc(context, x + corner, y + corner, corner, fullTurn / 2, fullTurn * 3 / 4);
    cairo_close_path(context);
}

void shadeCorners(cairo_t* context, double width, double height, double share) {
    cairo_save(context);
    cairo_scale(context, width, height);
    setRadial(context, {0.5, 0.5}, std::sqrt(0.5), {{0, black, 0}, {0.62, black, 0}, {1, black, share}});
    cairo_rectangle(context, 0, 0, 1, 1);
    cairo_fill(context);
    cairo_restore(context);
}

double SeededRandom::between(double low, double high) {
    return low + (high - low) * (mixed(seed_, ++drawn_) >> 8) / 16777216.0;
}

int SeededRandom::below(int limit) {
    return std::min(static_cast<int>(between(0, limit)), limit - 1);
}

Picture::Picture(int width, int height)
    : pixels_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      drawing_(cairo_create(pixels_.get())) {}

bool Picture::writePng(const std::string& path) const {
    cairo_surface_flush(pixels_.get());
    PixelBytes bytes;
    if (!toPalette(pixels_.get(), width(), height(), bytes)) {
        toChannels(pixels_.get(), width(), height(), bytes);
    }
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        return false;
    }
    bool written = encode(file, bytes, width(), height());
    return std::fclose(file) == 0 && written;
}
