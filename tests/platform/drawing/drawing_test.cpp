// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/drawing/surface.h"
#include "platform/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

constexpr int side = 12;

// A surface with a device context. Every pixel has a different value.
struct Canvas {
    Canvas() {
        surface.resize(side, side);
        for (int i = 0; i < side * side; ++i) {
            surface.row(0)[i] = static_cast<std::uint32_t>(i + 1);
        }
        surface.changed = false;
    }
    ~Canvas() { deleteSurfaceDC(dc); }
    std::vector<std::uint32_t> pixels() const { return {surface.row(0), surface.row(side)}; }

    Surface surface;
    HDC dc = createSurfaceDC(&surface);
};

// Returns the expected target pixels of a copy that reads from a snapshot of the source.
std::vector<std::uint32_t> copied(const Canvas& target, POINT to, SIZE size, const Canvas& source,
                                  POINT from) {
    std::vector<std::uint32_t> result = target.pixels();
    for (int i = 0; i < size.cx * size.cy; ++i) {
        const POINT write{to.x + i % size.cx, to.y + i / size.cx};
        const POINT read{from.x + i % size.cx, from.y + i / size.cx};
        if (std::min({write.x, write.y, read.x, read.y}) >= 0 &&
            std::max({write.x, write.y, read.x, read.y}) < side) {
            result[static_cast<std::size_t>(write.y * side + write.x)] = source.surface.row(read.y)[read.x];
        }
    }
    return result;
}

} // namespace

TEST(Drawing, FillRectSetsExactlyTheClippedRectangle) {
    const RECT rects[] = {{2, 3, 5, 7}, {-4, -4, 3, 3}, {9, 9, 40, 40}, {5, 5, 5, 9},
                          {8, 8, 3, 3}, {-9, 2, -3, 5}, {30, 0, 40, 9}, {INT_MIN, INT_MIN, INT_MAX, INT_MAX}};
    HBRUSH brush = CreateSolidBrush(0xFF112233); // the highest byte of a colour is ignored
    for (const RECT& rect : rects) {
        Canvas canvas;
        std::vector<std::uint32_t> wanted = canvas.pixels();
        for (int i = 0; i < side * side; ++i) {
            const bool inside = i % side >= rect.left && i % side < rect.right && i / side >= rect.top &&
                                i / side < rect.bottom;
            wanted[static_cast<std::size_t>(i)] = inside ? 0x332211U : wanted[static_cast<std::size_t>(i)];
        }
        const bool any = wanted != canvas.pixels();
        EXPECT_EQ(FillRect(canvas.dc, &rect, brush), 1);
        EXPECT_EQ(canvas.pixels(), wanted) << rect.left << ' ' << rect.top;
        EXPECT_EQ(canvas.surface.changed, any);
    }
    DeleteObject(brush);
}

TEST(Drawing, BitBltCopiesAsFromASnapshotInEveryDirection) {
    const int places[] = {-3, 0, 1, 4, 11};
    for (int i = 0; i < 2 * 5 * 5 * 5 * 5; ++i) {
        const POINT to{places[i / 2 % 5], places[i / 10 % 5]};
        const POINT from{places[i / 50 % 5], places[i / 250]};
        Canvas target;
        Canvas other;
        other.surface.fill({3, 3, 9, 9}, 0xABCDEF);
        const Canvas& source = i % 2 == 0 ? target : other;
        const std::vector<std::uint32_t> wanted = copied(target, to, {7, 8}, source, from);
        ASSERT_TRUE(BitBlt(target.dc, to.x, to.y, 7, 8, source.dc, from.x, from.y, SRCCOPY));
        ASSERT_EQ(target.pixels(), wanted) << to.x << ' ' << to.y << ' ' << from.x << ' ' << from.y;
    }
}

TEST(Drawing, PlgBltTurnsTheCopyAndClipsIt) {
    const SIZE size{9, 6}; // whole squares of 4 pixels and a rest
    const struct {
        POINT across; // direction of the rows of the source in the target
        POINT down;
    } turns[] = {{{1, 0}, {0, 1}}, {{0, 1}, {-1, 0}}, {{-1, 0}, {0, -1}}, {{0, -1}, {1, 0}}};
    for (const auto& [across, down] : turns) {
        for (const POINT corner :
             {POINT{6, 6}, POINT{1, 1}, POINT{11, 11}, POINT{-20, 5}, POINT{INT_MAX, 3}}) {
            const Canvas source;
            Canvas target;
            std::vector<std::uint32_t> wanted = target.pixels();
            for (int i = 0; i < size.cx * size.cy; ++i) {
                // Doubled, to find the pixel by its middle.
                const int column = 2 * (i % size.cx) + 1;
                const int row = 2 * (i / size.cx) + 1;
                const std::int64_t x = 2 * std::int64_t{corner.x} + column * across.x + row * down.x;
                const std::int64_t y = 2 * std::int64_t{corner.y} + column * across.y + row * down.y;
                if (std::min(x, y) >= 0 && std::max(x, y) < std::int64_t{2} * side) {
                    wanted[static_cast<std::size_t>(y / 2 * side + x / 2)] =
                        source.surface.row(1 + row / 2)[2 + column / 2];
                }
            }
            POINT corners[] = {corner, corner, corner};
            const auto add = [](LONG& place, LONG step) {
                place =
                    static_cast<LONG>(std::clamp<std::int64_t>(std::int64_t{place} + step, INT_MIN, INT_MAX));
            };
            add(corners[1].x, size.cx * across.x);
            add(corners[1].y, size.cx * across.y);
            add(corners[2].x, size.cy * down.x);
            add(corners[2].y, size.cy * down.y);
            PlgBlt(target.dc, corners, source.dc, 2, 1, size.cx, size.cy, nullptr, 0, 0);
            EXPECT_EQ(target.pixels(), wanted) << across.x << " " << down.x << " at " << corner.x;
            corners[2].x += corner.x == INT_MAX ? -1 : 1; // sheared
            EXPECT_FALSE(PlgBlt(target.dc, corners, source.dc, 2, 1, size.cx, size.cy, nullptr, 0, 0));
        }
    }
    const Canvas source;
    const Canvas target;
    const POINT corners[] = {{0, 0}, {5, 0}, {0, 3}};
    EXPECT_FALSE(PlgBlt(target.dc, corners, source.dc, 8, 1, size.cx, size.cy, nullptr, 0, 0)) << "outside";
    EXPECT_FALSE(PlgBlt(target.dc, corners, target.dc, 2, 1, size.cx, size.cy, nullptr, 0, 0));
    EXPECT_FALSE(PlgBlt(target.dc, corners, nullptr, 2, 1, size.cx, size.cy, nullptr, 0, 0));
}

TEST(Drawing, InvalidOrOutsideBitBltChangesNothing) {
    Canvas target;
    const Canvas source;
    const std::vector<std::uint32_t> before = target.pixels();
    for (const int far : {INT_MIN, INT_MAX}) {
        EXPECT_TRUE(BitBlt(target.dc, far, far, INT_MAX, INT_MAX, source.dc, 0, 0, SRCCOPY));
        EXPECT_TRUE(BitBlt(target.dc, 0, 0, INT_MAX, INT_MAX, source.dc, far, far, SRCCOPY));
        EXPECT_TRUE(BitBlt(target.dc, far, 0, INT_MAX, 5, source.dc, far, 0, SRCCOPY));
    }
    EXPECT_TRUE(BitBlt(target.dc, 2, 2, INT_MIN, 4, source.dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(target.dc, 0, 0, 5, 5, source.dc, 1, 1, SRCCOPY + 1));
    EXPECT_EQ(target.pixels(), before);
    EXPECT_FALSE(target.surface.changed);
}

TEST(Drawing, BitmapsAreBlackDescribedAndLimited) {
    const int sizes[][4] = {{7, 5, 7, 5}, {0, 9, 1, 1}, {9, 0, 1, 1}};
    for (const auto& [width, height, realWidth, realHeight] : sizes) {
        HBITMAP bitmap = CreateCompatibleBitmap(nullptr, width, height);
        BITMAP description{};
        EXPECT_EQ(GetObjectA(bitmap, sizeof(BITMAP) - 1, &description), 0);
        ASSERT_EQ(GetObjectA(bitmap, sizeof(BITMAP), &description), static_cast<int>(sizeof(BITMAP)));
        EXPECT_EQ(description.bmWidth, realWidth);
        EXPECT_EQ(description.bmHeight, realHeight);
        const Surface& surface = std::get<Surface>(findObject(bitmap)->content);
        EXPECT_EQ(surface.row(realHeight - 1)[realWidth - 1], 0U);
        EXPECT_TRUE(DeleteObject(bitmap));
    }
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, -1, 5), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, INT_MAX, INT_MAX), nullptr);
}

TEST(Drawing, SelectObjectReturnsTheReplacedObject) {
    HDC memory = CreateCompatibleDC(nullptr);
    const std::size_t before = liveObjectCount();
    const LOGFONTA description{};
    HGDIOBJ objects[][2] = {{CreateCompatibleBitmap(memory, 4, 4), CreateCompatibleBitmap(memory, 4, 4)},
                            {CreateSolidBrush(1), CreateSolidBrush(2)},
                            {CreateFontIndirectA(&description), CreateFontIndirectA(&description)}};
    for (const auto& [first, second] : objects) {
        HGDIOBJ stock = SelectObject(memory, first);
        EXPECT_EQ(SelectObject(memory, first), first);
        EXPECT_EQ(SelectObject(memory, second), first);
        EXPECT_TRUE(DeleteObject(stock));
        EXPECT_EQ(SelectObject(memory, stock), second);
        EXPECT_TRUE(DeleteObject(first));
        EXPECT_FALSE(DeleteObject(first));
        EXPECT_EQ(SelectObject(memory, first), nullptr);
        EXPECT_TRUE(DeleteObject(second));
    }
    EXPECT_EQ(liveObjectCount(), before);
    EXPECT_EQ(SetTextColor(memory, 0x123456), 0U);
    EXPECT_EQ(SetTextColor(memory, 0), 0x123456U);
    EXPECT_EQ(SetBkColor(memory, 0x654321), 0xFFFFFFU);
    EXPECT_EQ(SetBkMode(memory, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(memory, 3), 0);
    EXPECT_EQ(SetBkMode(memory, OPAQUE), TRANSPARENT);
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_FALSE(DeleteDC(memory));
}

TEST(Drawing, DeletedObjectsExistWhileSelected) {
    HDC first = CreateCompatibleDC(nullptr);
    HDC second = CreateCompatibleDC(first);
    const std::size_t before = liveObjectCount();
    HBITMAP bitmap = CreateCompatibleBitmap(first, 3, 3);
    HBRUSH brush = CreateSolidBrush(0x0000FF);
    SelectObject(first, bitmap);
    SelectObject(first, brush);
    SelectObject(second, brush);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(liveObjectCount(), before + 2);
    Canvas canvas;
    BitBlt(first, 0, 0, 3, 3, canvas.dc, 0, 0, SRCCOPY);
    BitBlt(canvas.dc, 5, 5, 3, 3, first, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.surface.row(7)[7], 2U * side + 3);
    EXPECT_TRUE(DeleteDC(first));
    EXPECT_EQ(liveObjectCount(), before + 1);
    EXPECT_EQ(SelectObject(second, GetStockObject(BLACK_BRUSH)), brush);
    EXPECT_EQ(liveObjectCount(), before);
    EXPECT_TRUE(DeleteDC(second));
}

TEST(Drawing, ABitmapIsSelectedInOneMemoryContextOnly) {
    const Canvas canvas;
    HDC first = CreateCompatibleDC(canvas.dc);
    HDC second = CreateCompatibleDC(canvas.dc);
    HBITMAP bitmap = CreateCompatibleBitmap(canvas.dc, 3, 3);
    EXPECT_EQ(SelectObject(canvas.dc, bitmap), nullptr);
    HGDIOBJ stock = SelectObject(first, bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, stock), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), stock);
    DeleteDC(first);
    DeleteDC(second);
    DeleteObject(bitmap);
}

TEST(Drawing, RejectsHandlesOfOtherKinds) {
    Canvas canvas;
    HDC memory = CreateCompatibleDC(nullptr);
    HBRUSH brush = CreateSolidBrush(0);
    const RECT rect{0, 0, 2, 2};
    for (void* handle :
         {static_cast<void*>(nullptr), static_cast<void*>(brush), static_cast<void*>(&canvas)}) {
        HDC wrong = static_cast<HDC>(handle);
        EXPECT_EQ(FillRect(wrong, &rect, brush), 0);
        EXPECT_FALSE(BitBlt(canvas.dc, 0, 0, 5, 5, wrong, 1, 1, SRCCOPY));
        EXPECT_FALSE(DeleteDC(wrong));
        EXPECT_EQ(SelectObject(wrong, brush), nullptr);
        EXPECT_EQ(SetTextColor(wrong, 0), 0xFFFFFFFF);
        EXPECT_EQ(SetBkMode(wrong, OPAQUE), 0);
    }
    EXPECT_EQ(FillRect(memory, &rect, reinterpret_cast<HBRUSH>(memory)), 0);
    EXPECT_FALSE(DeleteObject(memory));
    EXPECT_EQ(SelectObject(memory, memory), nullptr);
    EXPECT_FALSE(DeleteDC(canvas.dc));
    EXPECT_FALSE(deleteSurfaceDC(memory));
    EXPECT_EQ(GetStockObject(BLACK_BRUSH + 100), nullptr);
    DeleteObject(brush);
    EXPECT_EQ(FillRect(memory, &rect, brush), 0);
    DeleteDC(memory);
}

TEST(Drawing, MulDivRoundsHalvesAwayFromZero) {
    const int cases[][4] = {{10, 96, 72, 13},
                            {1, 1, 2, 1},
                            {-1, 1, 2, -1},
                            {1, 1, -2, -1},
                            {-1, -1, -2, -1},
                            {5, 7, 0, -1},
                            {INT_MAX, 2, 1, -1},
                            {INT_MIN, 1, -1, -1},
                            {INT_MIN, 1, 1, INT_MIN},
                            {0, 5, INT_MIN, 0},
                            {INT_MIN, INT_MIN, INT_MIN, INT_MIN}};
    for (const auto& [number, numerator, denominator, result] : cases) {
        EXPECT_EQ(MulDiv(number, numerator, denominator), result) << number << ' ' << numerator;
    }
}
