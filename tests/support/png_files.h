// Pictures that tests make themselves: any colour
// type, depth and interlacing that a PNG can
// have, with samples that depend on the place.
#pragma once

#include <png.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

struct PngForm {
    int colorType = PNG_COLOR_TYPE_RGB;
    int depth = 8;
    bool interlaced = false;
    int width = 11;
    int height = 5;
    int paletteCount = 0;    // 0 means all that the depth can tell apart
    int evenColor = -1;      // one palette entry for all pixels, a gray of the same value
    int resolutionUnit = -1; // no pHYs chunk below 0
    int grain = 1;           // so many pixels in a square are alike

    int channels() const {
        switch (colorType) {
        case PNG_COLOR_TYPE_RGB:
            return 3;
        case PNG_COLOR_TYPE_RGB_ALPHA:
            return 4;
        case PNG_COLOR_TYPE_GRAY_ALPHA:
            return 2;
        default:
            return 1;
        }
    }
};

// The sample of a channel, of the depth of the form.
inline unsigned sampleAt(const PngForm& form, int x, int y, int channel) {
    if (form.evenColor >= 0) {
        return static_cast<unsigned>(form.evenColor);
    }
    const auto column = static_cast<unsigned>(x / form.grain);
    const auto row = static_cast<unsigned>(y / form.grain);
    const unsigned place = column * 7919 + row * 104729 + static_cast<unsigned>(channel) * 1299709;
    const unsigned mixed = (place + column * row) * 2654435761U;
    return mixed >> (32 - form.depth);
}

inline png_color paletteColor(int index) {
    return {static_cast<png_byte>(index * 5 + 3), static_cast<png_byte>(255 - index),
            static_cast<png_byte>(index * 3)};
}

// One line of the picture as it stands in the file.
inline std::vector<png_byte> packedRow(const PngForm& form, int y) {
    const int bits = form.width * form.channels() * form.depth;
    std::vector<png_byte> row(static_cast<std::size_t>((bits + 7) / 8));
    for (int i = 0; i < form.width * form.channels(); ++i) {
        const unsigned sample = sampleAt(form, i / form.channels(), y, i % form.channels());
        for (int bit = 0; bit < form.depth; ++bit) {
            const int position = i * form.depth + bit;
            const unsigned value = sample >> (form.depth - 1 - bit) & 1;
            row[static_cast<std::size_t>(position / 8)] |= static_cast<png_byte>(value << (7 - position % 8));
        }
    }
    return row;
}

// The bytes of the whole file.
inline std::string pngBytes(const PngForm& form) {
    std::string bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    const auto append = [](png_structp writer, png_bytep data, std::size_t size) {
        static_cast<std::string*>(png_get_io_ptr(writer))->append(reinterpret_cast<char*>(data), size);
    };
    png_set_write_fn(png, &bytes, append, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(form.width), static_cast<png_uint_32>(form.height),
                 form.depth, form.colorType, form.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (form.colorType == PNG_COLOR_TYPE_PALETTE) {
        std::vector<png_color> palette;
        for (int i = 0; i < (form.paletteCount > 0 ? form.paletteCount : 1 << form.depth); ++i) {
            const auto gray = static_cast<png_byte>(i);
            palette.push_back(form.evenColor >= 0 ? png_color{gray, gray, gray} : paletteColor(i));
        }
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
        png_set_check_for_invalid_index(png, 0);
    }
    if (form.resolutionUnit >= 0) {
        png_set_pHYs(png, info, 2000, 3000, form.resolutionUnit);
    }
    png_write_info(png, info);
    std::vector<std::vector<png_byte>> rows;
    std::vector<png_bytep> pointers;
    for (int y = 0; y < form.height; ++y) {
        rows.push_back(packedRow(form, y));
        pointers.push_back(rows.back().data());
    }
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes;
}
