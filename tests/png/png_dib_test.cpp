// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/png_dib.h"

#include "platform/memory.h"
#include "support/png_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <zlib.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace {

// The result of decoding a file.
struct Decoded {
    explicit Decoded(const std::string& path) {
        params.size = pngDibParamsSize;
        params.fileName = path.c_str();
        result = pngToDib(&params);
    }
    ~Decoded() { GlobalFree(result == pngDibSuccess ? params.dib : nullptr); }

    const BITMAPINFOHEADER& header() const { return *static_cast<BITMAPINFOHEADER*>(params.dib); }

    int stride() const { return (header().biBitCount * header().biWidth + 31) / 32 * 4; }

    // Returns a pixel, with y counted from the top: a palette index, or 0x00RRGGBB.
    unsigned pixel(int x, int y) const {
        const int bits = header().biBitCount;
        const BYTE* row = params.pixels + (header().biHeight - 1 - y) * stride();
        if (bits == 24) {
            return static_cast<unsigned>(row[3 * x] | row[3 * x + 1] << 8 | row[3 * x + 2] << 16);
        }
        return static_cast<unsigned>(row[x * bits / 8] >> (8 - bits - x * bits % 8) & ((1 << bits) - 1));
    }

    PngDibParams params{};
    int result = -1;
};

struct ExpectedForm {
    int colorType;
    int depth;
    int bits;
    unsigned paletteCount;
};

constexpr ExpectedForm allForms[] = {
    {PNG_COLOR_TYPE_GRAY, 1, 1, 2},          {PNG_COLOR_TYPE_GRAY, 2, 4, 4},
    {PNG_COLOR_TYPE_GRAY, 4, 4, 16},         {PNG_COLOR_TYPE_GRAY, 8, 8, 256},
    {PNG_COLOR_TYPE_GRAY, 16, 8, 256},       {PNG_COLOR_TYPE_GRAY_ALPHA, 8, 8, 256},
    {PNG_COLOR_TYPE_GRAY_ALPHA, 16, 8, 256}, {PNG_COLOR_TYPE_RGB, 8, 24, 0},
    {PNG_COLOR_TYPE_RGB, 16, 24, 0},         {PNG_COLOR_TYPE_RGB_ALPHA, 8, 24, 0},
    {PNG_COLOR_TYPE_RGB_ALPHA, 16, 24, 0},   {PNG_COLOR_TYPE_PALETTE, 1, 1, 2},
    {PNG_COLOR_TYPE_PALETTE, 2, 4, 4},       {PNG_COLOR_TYPE_PALETTE, 4, 4, 16},
    {PNG_COLOR_TYPE_PALETTE, 8, 8, 256},
};

unsigned expectedPixel(const PngForm& form, int bits, int x, int y) {
    const auto top = [&](int channel) { return sampleAt(form, x, y, channel) >> (form.depth == 16 ? 8 : 0); };
    return bits == 24 ? top(0) << 16 | top(1) << 8 | top(2) : top(0);
}

void expectPalette(const Decoded& picture, const PngForm& form) {
    for (int i = 0; i < static_cast<int>(picture.params.paletteCount); ++i) {
        const RGBQUAD& color = picture.params.palette[i];
        const int last = static_cast<int>(picture.params.paletteCount) - 1;
        const auto gray = static_cast<png_byte>(i * 255 / last);
        const bool fromFile = form.colorType == PNG_COLOR_TYPE_PALETTE;
        const png_color expected = fromFile ? paletteColor(i) : png_color{gray, gray, gray};
        EXPECT_EQ(color.rgbRed, expected.red) << i;
        EXPECT_EQ(color.rgbGreen, expected.green) << i;
        EXPECT_EQ(color.rgbBlue, expected.blue) << i;
        EXPECT_EQ(color.rgbReserved, 0) << i;
    }
}

// Checks that the padding bits of each row are zero.
void expectCleanRowEnds(const Decoded& picture) {
    const int used = picture.header().biWidth * picture.header().biBitCount;
    for (int y = 0; y < picture.header().biHeight; ++y) {
        for (int bit = used; bit < picture.stride() * 8; ++bit) {
            const BYTE cell = picture.params.pixels[y * picture.stride() + bit / 8];
            ASSERT_EQ(cell >> (7 - bit % 8) & 1, 0) << y;
        }
    }
}

} // namespace

TEST(PngDib, EveryColorTypeDepthAndInterlacing) {
    const TemporaryFolder folder;
    for (int i = 0; i < 2 * static_cast<int>(std::size(allForms)) * 3; ++i) {
        const ExpectedForm& expected = allForms[i / 6];
        PngForm form{expected.colorType, expected.depth, i % 2 == 1};
        form.width = std::array{11, 1, 64}[static_cast<std::size_t>(i / 2 % 3)];
        SCOPED_TRACE(::testing::Message() << "type " << form.colorType << " depth " << form.depth << " width "
                                          << form.width << " interlaced " << form.interlaced);
        const Decoded picture(folder.write("a.png", pngBytes(form)));
        ASSERT_EQ(picture.result, pngDibSuccess);
        const PngDibParams& params = picture.params;
        const BITMAPINFOHEADER& header = picture.header();
        ASSERT_EQ(header.biBitCount, expected.bits);
        ASSERT_EQ(params.paletteCount, expected.paletteCount);
        EXPECT_EQ(header.biClrUsed, expected.paletteCount);
        EXPECT_EQ(header.biSize, 40U);
        EXPECT_EQ(header.biPlanes, 1);
        EXPECT_EQ(header.biWidth, form.width);
        EXPECT_EQ(header.biHeight, form.height);
        EXPECT_EQ(header.biSizeImage, static_cast<DWORD>(picture.stride() * form.height));
        EXPECT_EQ(params.headerSize, 40U);
        EXPECT_EQ(params.pixelOffset, 40 + 4 * expected.paletteCount);
        EXPECT_EQ(params.dibSize, params.pixelOffset + header.biSizeImage);
        EXPECT_EQ(params.pixels, static_cast<BYTE*>(params.dib) + params.pixelOffset);
        expectPalette(picture, form);
        expectCleanRowEnds(picture);
        for (int at = 0; at < form.width * form.height; ++at) {
            const int x = at % form.width;
            const int y = at / form.width;
            ASSERT_EQ(picture.pixel(x, y), expectedPixel(form, expected.bits, x, y)) << x << ' ' << y;
        }
    }
}

TEST(PngDib, ResolutionOnlyInPixelsPerMetre) {
    const TemporaryFolder folder;
    for (const int unit : {-1, PNG_RESOLUTION_UNKNOWN, PNG_RESOLUTION_METER}) {
        PngForm form;
        form.resolutionUnit = unit;
        const Decoded picture(folder.write("a.png", pngBytes(form)));
        ASSERT_EQ(picture.result, pngDibSuccess);
        EXPECT_EQ(picture.header().biXPelsPerMeter, unit == PNG_RESOLUTION_METER ? 2000 : 0);
        EXPECT_EQ(picture.header().biYPelsPerMeter, unit == PNG_RESOLUTION_METER ? 3000 : 0);
    }
}

TEST(PngDib, TheSizeFieldIsCheckedFirst) {
    PngDibParams params{};
    EXPECT_EQ(pngToDib(&params), pngDibWrongSize);
    params.size = sizeof(void*) == 4 ? 44 : sizeof(params);
    EXPECT_EQ(pngToDib(&params), pngDibWrongSize);
}

TEST(PngDib, FilesThatAreNotPngPictures) {
    const TemporaryFolder folder;
    mkfifo(folder.pathOf("pipe.png").c_str(), 0600);
    std::filesystem::create_directory(folder.pathOf("folder.png"));
    EXPECT_EQ(Decoded(folder.pathOf("missing.png")).result, pngDibCannotOpen);
    EXPECT_EQ(Decoded(folder.pathOf("pipe.png")).result, pngDibCannotOpen);
    EXPECT_EQ(Decoded(folder.pathOf("folder.png")).result, pngDibCannotOpen);
    EXPECT_EQ(Decoded(folder.write("empty.png", "")).result, pngDibDamaged);
    EXPECT_EQ(Decoded(folder.write("text.png", "A letter, and no picture.\n")).result, pngDibDamaged);
    EXPECT_EQ(Decoded(folder.write("photo.png", "\xFF\xD8\xFF\xE0\x10JFIF")).result, pngDibDamaged);
}

TEST(PngDib, TruncatedOrDamagedAtEveryByte) {
    const TemporaryFolder folder;
    const std::size_t openFiles = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    const PngForm forms[] = {{PNG_COLOR_TYPE_PALETTE, 2, true, 5, 3},
                             {PNG_COLOR_TYPE_RGB_ALPHA, 16, false, 5, 3}};
    for (const PngForm& form : forms) {
        const std::string whole = pngBytes(form);
        const int bits = form.colorType == PNG_COLOR_TYPE_PALETTE ? 4 : 24;
        for (std::size_t at = 0; at < whole.size(); ++at) {
            EXPECT_EQ(Decoded(folder.write("a.png", whole.substr(0, at))).result, pngDibDamaged) << at;
            std::string damaged = whole;
            for (const int change : {0x01, 0x80, 0xFF}) {
                damaged[at] = static_cast<char>(whole[at] ^ change);
                const Decoded picture(folder.write("a.png", damaged));
                // Damage that no checksum detects must still result in a complete picture.
                if (picture.result == pngDibSuccess) {
                    EXPECT_EQ(picture.header().biBitCount, bits);
                    EXPECT_EQ(picture.params.dibSize,
                              picture.params.pixelOffset + picture.stride() * picture.header().biHeight);
                }
            }
        }
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}), openFiles);
}

TEST(PngDib, DeclaredSizesBeyondTheContent) {
    const TemporaryFolder folder;
    struct Case {
        int colorType;
        int depth;
        png_uint_32 width;
        png_uint_32 height;
        int result;
    };
    const Case cases[] = {
        {PNG_COLOR_TYPE_RGB, 8, 30000, 30000, pngDibOutOfMemory},  // size exceeds 31 bits
        {PNG_COLOR_TYPE_RGB, 8, 50000, 50000, pngDibOutOfMemory},  // size exceeds 32 bits
        {PNG_COLOR_TYPE_GRAY, 8, 30000, 30000, pngDibOutOfMemory}, // exceeds the memory limit
        {PNG_COLOR_TYPE_GRAY, 1, 30000, 30000,
         pngDibOutOfMemory},                                   // fits in memory, but exceeds the pixel limit
        {PNG_COLOR_TYPE_GRAY, 1, 10000, 10000, pngDibDamaged}, // truncated
        {PNG_COLOR_TYPE_RGB_ALPHA, 16, 6000, 8000, pngDibDamaged}, // the largest flyer, truncated
        {PNG_COLOR_TYPE_RGB, 8, 6400, 8000, pngDibOutOfMemory},
        {PNG_COLOR_TYPE_RGB, 16, 1000000, 49, pngDibOutOfMemory}, // including libpng's rows
        {PNG_COLOR_TYPE_RGB, 8, 0x7FFFFFFF, 1, pngDibDamaged},    // exceeds libpng's limit
    };
    for (const Case& declared : cases) {
        std::string bytes = pngBytes({declared.colorType, declared.depth});
        png_byte* header = reinterpret_cast<png_byte*>(bytes.data()) + 12;
        png_save_uint_32(header + 4, declared.width);
        png_save_uint_32(header + 8, declared.height);
        png_save_uint_32(header + 17, static_cast<png_uint_32>(crc32(0, header, 17)));
        EXPECT_EQ(Decoded(folder.write("a.png", bytes)).result, declared.result) << declared.width;
    }
    PngForm tall;
    tall.width = 1;
    tall.height = 30000;
    EXPECT_EQ(Decoded(folder.write("a.png", pngBytes(tall))).result, pngDibSuccess);
}

// Compressed text chunks of five megabytes each in a small file.
TEST(PngDib, TextChunksUseNoMemory) {
    const TemporaryFolder folder;
    const std::string text(5'000'000, 'a');
    std::string chunk(compressBound(text.size()), '\0');
    uLongf size = chunk.size();
    compress(reinterpret_cast<Bytef*>(chunk.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
             text.size());
    chunk = std::string("\0\0\0\0zTXtk\0\0", 11) + chunk.substr(0, size) + "1234";
    auto* bytes = reinterpret_cast<png_byte*>(chunk.data());
    png_save_uint_32(bytes, static_cast<png_uint_32>(size + 3));
    png_save_uint_32(bytes + size + 11,
                     static_cast<png_uint_32>(crc32(0, bytes + 4, static_cast<uInt>(size + 7))));
    std::string picture = pngBytes({});
    constexpr std::size_t headerEnd = 33;
    for (int count = 0; count < 40; ++count) {
        picture.insert(headerEnd, chunk);
    }
    struct rusage before {};
    struct rusage after {};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_EQ(Decoded(folder.write("a.png", picture)).result, pngDibSuccess);
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 50'000); // in kilobytes; the texts take 200,000
}
