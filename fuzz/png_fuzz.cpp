// SPDX-License-Identifier: GPL-3.0-or-later
// PNG files: decoding, turning and stretching. Half of the inputs are files, whose checksums are corrected,
// since nearly all changed files would end there; the other half are pixels of a file that is made here, and
// its form. Turning a picture to and fro keeps its pixels.
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/memory.h"
#include "png/png_dib.h"
#include "render/picture_turn.h"
#include "support/default_settings.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"

#include <array>
#include <zlib.h>

namespace {

constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
constexpr std::array<std::int32_t, 4> rotations = {0, 90, -90, 180};
constexpr int largestSide = 300; // of a target rectangle
constexpr LONG mostPixels = 1 << 18;

std::string bigEndian(std::uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

std::uint32_t checksum(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

std::string chunk(const std::string& name, const std::string& content) {
    return bigEndian(static_cast<std::uint32_t>(content.size())) + name + content +
           bigEndian(checksum(name + content));
}

std::string correctedFile(std::string bytes) {
    for (std::size_t at = signature.size(); at + 12 <= bytes.size();) {
        std::uint32_t length = 0;
        for (std::size_t index = 0; index < 4; ++index) {
            length = length << 8 | static_cast<unsigned char>(bytes[at + index]);
        }
        if (length > bytes.size() - at - 12) {
            break;
        }
        const std::uint32_t sum = checksum(std::string_view(bytes).substr(at + 4, std::size_t{length} + 4));
        bytes.replace(at + 8 + length, 4, bigEndian(sum));
        at += std::size_t{length} + 12;
    }
    return bytes;
}

// Repeats the bytes, which start with the filter of a row, to the size of the largest picture made here.
std::string compressed(std::string_view bytes, std::size_t size) {
    std::string rows(size, '\0');
    for (std::size_t at = 0; at < size && !bytes.empty(); at += bytes.size()) {
        bytes.substr(0, size - at).copy(&rows[at], size - at);
    }
    uLongf length = compressBound(size);
    std::string result(length, '\0');
    compress2(reinterpret_cast<Bytef*>(result.data()), &length, reinterpret_cast<const Bytef*>(rows.data()),
              size, 1);
    result.resize(length);
    return result;
}

std::string madeFile(FuzzInput& input) {
    const auto width = static_cast<std::uint32_t>(input.number(1, 40));
    const auto height = static_cast<std::uint32_t>(input.number(1, 40));
    const int depth = 1 << input.number(0, 4);
    const int type = std::array{0, 2, 3, 4, 6}.at(static_cast<std::size_t>(input.number(0, 4)));
    const int interlace = input.number(0, 1);
    std::string file(signature);
    file += chunk("IHDR", bigEndian(width) + bigEndian(height) + static_cast<char>(depth) +
                              static_cast<char>(type) + std::string(2, '\0') + static_cast<char>(interlace));
    if (type == 3) {
        file += chunk("PLTE", std::string(3 * static_cast<std::size_t>(input.number(1, 256)), '\x42'));
    }
    const std::size_t rowBytes =
        std::size_t{width} * 8 + 3; // interlaced rows are more, and each has its filter
    return file + chunk("IDAT", compressed(input.rest(), rowBytes * height)) + chunk("IEND", "");
}

// The bits of a pixel; rows from the bottom.
std::uint32_t pixelAt(const PngDibParams& picture, LONG x, LONG y) {
    const auto& header = *static_cast<const BITMAPINFOHEADER*>(picture.dib);
    const LONG bits = header.biBitCount;
    const BYTE* row = picture.pixels + (header.biWidth * bits + 31) / 32 * 4 * y;
    if (bits == 24) {
        return static_cast<std::uint32_t>(row[3 * x] | row[3 * x + 1] << 8 | row[3 * x + 2] << 16);
    }
    return row[x * bits / 8] >> (8 - bits - x * bits % 8) & ((1U << bits) - 1);
}

void turn(PngDibParams& picture, std::int32_t rotation) {
    settings.orientation = rotation;
    rotateDib(&picture);
    require(picture.pixels != nullptr);
}

void checkTurns(const PngDibParams& decoded, std::int32_t rotation) {
    const BITMAPINFOHEADER header = *static_cast<const BITMAPINFOHEADER*>(decoded.dib);
    PngDibParams turned = decoded;
    turn(turned, rotation);
    PngDibParams back = turned;
    turn(back, rotation == 180 ? 180 : -rotation);
    for (LONG y = 0; y < header.biHeight; ++y) {
        for (LONG x = 0; x < header.biWidth; ++x) {
            require(pixelAt(decoded, x, y) == pixelAt(back, x, y));
        }
    }
    if (rotation != 0) {
        GlobalFree(turned.pixels);
        GlobalFree(back.pixels);
    }
}

void draw(HDC dc, const PngDibParams& picture, FuzzInput& input) {
    const auto* info = static_cast<const BITMAPINFO*>(picture.dib);
    const int width = input.number(-1, largestSide);
    const int height = input.number(-1, largestSide);
    StretchDIBits(dc, input.number(-200, 200), input.number(-200, 200), width, height, 0, 0,
                  info->bmiHeader.biWidth, info->bmiHeader.biHeight, picture.pixels, info, DIB_RGB_COLORS,
                  SRCCOPY);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const HDC dc = CreateCompatibleDC(nullptr);
    static const HGDIOBJ bitmap = SelectObject(dc, CreateCompatibleBitmap(dc, 120, 90));
    require(bitmap != nullptr);
    FuzzInput input(data, size);
    FuzzInput sizes = input; // read twice: as the form of the file and as the size on the screen
    const std::int32_t rotation = rotations.at(static_cast<std::size_t>(input.number(0, 3)));
    writeScratchFile("a.png", input.flag() ? madeFile(input) : correctedFile(std::string(input.rest())));
    PngDibParams picture{};
    picture.size = pngDibParamsSize;
    picture.fileName = "a.png";
    if (pngToDib(&picture) != pngDibSuccess) {
        require(picture.dib == nullptr);
        return 0;
    }
    const auto& header = *static_cast<const BITMAPINFOHEADER*>(picture.dib);
    require(header.biWidth > 0 && header.biHeight > 0);
    if (std::int64_t{header.biWidth} * header.biHeight <= mostPixels) {
        checkTurns(picture, rotation);
        draw(dc, picture, sizes);
        if (resizeDib(dc, &picture, sizes.number(0, largestSide), sizes.number(0, largestSide))) {
            draw(dc, picture, sizes);
        }
    }
    GlobalFree(picture.dib);
    return 0;
}
