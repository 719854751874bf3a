// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing.h"
#include "platform/stretch.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/surface.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <vector>

namespace {

constexpr std::uint32_t untouched = 0x123456;

struct Canvas {
    Canvas(int width, int height) {
        surface.resize(width, height);
        surface.fill({0, 0, width, height}, untouched);
        surface.changed = false;
    }
    ~Canvas() { deleteSurfaceDC(dc); }

    Surface surface;
    HDC dc = createSurfaceDC(&surface);
};

// A bitmap with a palette of grays in which every index has a different value.
struct Bitmap {
    Bitmap(int bits, int width, int height)
        : stride((bits * width + 31) / 32 * 4), memory(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD)),
          rows(static_cast<std::size_t>(stride * height)) {
        header() = {40, width, height, 1, static_cast<WORD>(bits), BI_RGB, 0, 0, 0, 0, 0};
        for (int i = 0; i < 256; ++i) {
            const auto gray = static_cast<BYTE>(i * 255 / ((1 << std::min(bits, 8)) - 1));
            info()->bmiColors[i] = {gray, gray, gray, 0};
        }
    }

    BITMAPINFO* info() { return reinterpret_cast<BITMAPINFO*>(memory.data()); }
    BITMAPINFOHEADER& header() { return info()->bmiHeader; }

    // Sets a pixel to a palette index, or to a gray value for 24 bits. Rows count from the top.
    void set(int x, int y, int value) {
        const int bits = header().biBitCount;
        BYTE* row = rows.data() + (header().biHeight - 1 - y) * stride;
        for (int byte = 0; bits == 24 && byte < 3; ++byte) {
            row[3 * x + byte] = static_cast<BYTE>(value);
        }
        if (bits < 24) {
            row[x * bits / 8] |= static_cast<BYTE>(value << (8 - bits - x * bits % 8));
        }
    }

    int draw(HDC dc, int x, int y, int width, int height) {
        return StretchDIBits(dc, x, y, width, height, 0, 0, header().biWidth, header().biHeight, rows.data(),
                             info(), DIB_RGB_COLORS, SRCCOPY);
    }

    int stride;
    std::vector<BYTE> memory;
    std::vector<BYTE> rows;
};

} // namespace

TEST(Stretch, SameSizeIsAClippedCopyAtEveryDepth) {
    for (const int bits : {1, 4, 8, 24}) {
        Bitmap bitmap(bits, 21, 9);
        const int most = (1 << std::min(bits, 8)) - 1;
        for (int i = 0; i < 21 * 9; ++i) {
            bitmap.set(i % 21, i / 21, (i * i / 3) & most);
        }
        for (const POINT at : {POINT{3, 2}, POINT{-7, -3}, POINT{12, 10}, POINT{40, 0}, POINT{0, -9}}) {
            Canvas canvas(24, 14);
            EXPECT_EQ(bitmap.draw(canvas.dc, at.x, at.y, 21, 9), 9);
            for (int i = 0; i < 24 * 14; ++i) {
                const int x = i % 24 - at.x;
                const int y = i / 24 - at.y;
                const bool inside = x >= 0 && x < 21 && y >= 0 && y < 9;
                const int value = ((y * 21 + x) * (y * 21 + x) / 3) & most;
                const auto gray = static_cast<std::uint32_t>(value * 255 / most);
                ASSERT_EQ(canvas.surface.row(0)[i], inside ? gray * 0x010101 : untouched) << bits << ' ' << i;
            }
        }
    }
}

TEST(Stretch, AUniformColourIsExactAndFillsExactlyTheRectangle) {
    for (const SIZE size : {SIZE{1, 1}, SIZE{37, 3}, SIZE{5, 300}, SIZE{1999, 17}, SIZE{64, 64}}) {
        Bitmap bitmap(24, size.cx, size.cy);
        for (int i = 0; i < size.cx * size.cy; ++i) {
            bitmap.set(i % size.cx, i / size.cx, 201);
        }
        for (const RECT& place : {RECT{3, 4, 60, 50}, RECT{10, 10, 11, 49}, RECT{-500, 7, 900, 40}}) {
            Canvas canvas(64, 64);
            bitmap.draw(canvas.dc, place.left, place.top, place.right - place.left, place.bottom - place.top);
            for (int i = 0; i < 64 * 64; ++i) {
                const bool inside = i % 64 >= place.left && i % 64 < place.right && i / 64 >= place.top &&
                                    i / 64 < place.bottom;
                ASSERT_EQ(canvas.surface.row(0)[i], inside ? 0xC9C9C9U : untouched) << size.cx << ' ' << i;
            }
        }
    }
}

TEST(Stretch, ReducesFineDetailToItsAverage) {
    for (const SIZE size : {SIZE{25, 25}, SIZE{31, 17}, SIZE{7, 40}}) {
        Bitmap bitmap(1, 100, 100);
        for (int i = 0; i < 100 * 100; ++i) {
            bitmap.set(i % 100, i / 100, (i % 100 + i / 100) % 2);
        }
        Canvas canvas(size.cx, size.cy);
        bitmap.draw(canvas.dc, 0, 0, size.cx, size.cy);
        for (int i = 0; i < size.cx * size.cy; ++i) {
            const int gray = static_cast<int>(canvas.surface.row(0)[i] & 0xFF);
            ASSERT_NEAR(gray, 128, 12) << size.cx << ' ' << i;
        }
    }
}

TEST(Stretch, KeepsAGradientLinearAndInPlace) {
    for (const int width : {900, 640, 170, 80}) {
        Bitmap bitmap(8, 256, 4);
        for (int i = 0; i < 256 * 4; ++i) {
            bitmap.set(i % 256, i / 256, i % 256);
        }
        Canvas canvas(width, 4);
        bitmap.draw(canvas.dc, 0, 0, width, 4);
        for (int x = width / 16; x < width - width / 16; ++x) {
            const double wanted = (x + 0.5) * 256 / width - 0.5;
            ASSERT_NEAR(static_cast<double>(canvas.surface.row(2)[x] & 0xFF), wanted, 1) << width;
        }
    }
}

TEST(Stretch, AnIndexBeyondThePaletteIsBlack) {
    Bitmap bitmap(8, 2, 1);
    bitmap.header().biClrUsed = 200;
    bitmap.set(0, 0, 199);
    bitmap.set(1, 0, 200);
    Canvas canvas(2, 1);
    bitmap.draw(canvas.dc, 0, 0, 2, 1);
    EXPECT_EQ(canvas.surface.row(0)[0], 0xC7C7C7U);
    EXPECT_EQ(canvas.surface.row(0)[1], 0U);
}

TEST(Stretch, HugeSizesFinishInBoundedTime) {
    Bitmap wide(1, 400000, 3);
    Bitmap tall(8, 1, 400000);
    wide.rows.assign(wide.rows.size(), 0xFF);
    tall.rows.assign(tall.rows.size(), 0xFF);
    for (Bitmap* bitmap : {&wide, &tall}) {
        for (const SIZE size : {SIZE{5, 5}, SIZE{1, 40}, SIZE{INT_MAX, INT_MAX}}) {
            Canvas canvas(9, 9);
            EXPECT_NE(bitmap->draw(canvas.dc, 2, 2, size.cx, size.cy), 0);
            EXPECT_EQ(canvas.surface.row(2)[2], 0xFFFFFFU);
            EXPECT_EQ(canvas.surface.row(1)[2], untouched);
        }
    }
}

TEST(Stretch, UnsupportedArgumentsDrawNothing) {
    Bitmap bitmap(24, 4, 4);
    Canvas canvas(4, 4);
    EXPECT_EQ(bitmap.draw(nullptr, 0, 0, 4, 4), 0);
    EXPECT_EQ(bitmap.draw(canvas.dc, 0, 0, 0, 4), 0);
    EXPECT_EQ(bitmap.draw(canvas.dc, 3, 3, -3, -3), 0);
    EXPECT_EQ(StretchDIBits(canvas.dc, 0, 0, 4, 4, 1, 0, 3, 4, bitmap.rows.data(), bitmap.info(),
                            DIB_RGB_COLORS, SRCCOPY),
              0);
    const BITMAPINFOHEADER good = bitmap.header();
    for (const int field : {0, 1, 2, 3}) {
        BITMAPINFOHEADER& header = bitmap.header() = good;
        header.biBitCount = field == 0 ? 16 : 24;
        header.biHeight = field == 1 ? -4 : 4;
        header.biCompression = field == 2 ? 1 : BI_RGB;
        header.biSize = field == 3 ? 12 : 40;
        EXPECT_EQ(bitmap.draw(canvas.dc, 0, 0, 4, 4), 0) << field;
    }
    EXPECT_FALSE(canvas.surface.changed);
}
