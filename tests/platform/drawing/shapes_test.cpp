// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "platform/shapes.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/drawing/surface.h"

#include <gtest/gtest.h>

namespace {

constexpr int side = 60;

// A ring drawn with a red pen on black.
struct Ring {
    Ring(int penWidth, RECT rect, int corner, UINT brushStyle = BS_HOLLOW) {
        surface.resize(side, side);
        const HDC dc = createSurfaceDC(&surface);
        const LOGBRUSH description{brushStyle, 0x00FF00, 0};
        const HGDIOBJ pen = CreatePen(PS_SOLID, penWidth, 0x0000FF);
        const HGDIOBJ brush = CreateBrushIndirect(&description);
        const HGDIOBJ oldPen = SelectObject(dc, pen);
        const HGDIOBJ oldBrush = SelectObject(dc, brush);
        EXPECT_TRUE(RoundRect(dc, rect.left, rect.top, rect.right, rect.bottom, corner, corner));
        EXPECT_EQ(SelectObject(dc, oldBrush), brush);
        EXPECT_EQ(SelectObject(dc, oldPen), pen);
        EXPECT_TRUE(DeleteObject(brush));
        EXPECT_TRUE(DeleteObject(pen));
        deleteSurfaceDC(dc);
    }
    std::uint32_t at(int x, int y) const { return surface.row(y)[x]; }

    Surface surface;
};

} // namespace

// Through the middle, away from the corners, each side is as wide as the pen and centred on the outermost
// pixels.
TEST(Shapes, SidesAreCrispAndInPlace) {
    const Ring warmUp(1, {0, 0, 9, 9}, 1); // creates the stock objects
    const std::size_t objects = liveObjectCount();
    const RECT rects[] = {{10, 12, 50, 48}, {50, 48, 10, 12}, {50, 12, 10, 48}};
    for (const int width : {0, 1, 2, 3, 8}) {
        const int pen = std::max(width, 1);
        for (const RECT& rect : rects) {
            const Ring ring(width, rect, width);
            for (int i = 0; i < side; ++i) {
                const auto covered = [=](int first, int last) {
                    const int before = i - (first - pen / 2);
                    const int after = i - (last - 1 - pen / 2);
                    return (before >= 0 && before < pen) || (after >= 0 && after < pen);
                };
                ASSERT_EQ(ring.at(i, 30), covered(10, 50) ? 0xFF0000U : 0U) << width << ' ' << i;
                ASSERT_EQ(ring.at(30, i), covered(12, 48) ? 0xFF0000U : 0U) << width << ' ' << i;
            }
        }
    }
    EXPECT_EQ(liveObjectCount(), objects);
}

TEST(Shapes, CornersAreRoundOrSquare) {
    const Ring square(0, {10, 10, 50, 50}, 0);
    const Ring round(8, {10, 10, 50, 50}, 8);
    for (const POINT corner : {POINT{10, 10}, POINT{49, 10}, POINT{10, 49}, POINT{49, 49}}) {
        EXPECT_EQ(square.at(corner.x, corner.y), 0xFF0000U);
    }
    EXPECT_EQ(round.at(6, 6), 0U);
    EXPECT_EQ(round.at(53, 53), 0U);
    EXPECT_EQ(round.at(9, 9), 0xFF0000U);
}

TEST(Shapes, TheBrushFillsTheInside) {
    EXPECT_EQ(Ring(4, {10, 10, 50, 50}, 4, BS_SOLID).at(30, 30), 0x00FF00U);
    EXPECT_EQ(Ring(4, {10, 10, 50, 50}, 4, BS_HOLLOW).at(30, 30), 0U);
    EXPECT_EQ(Ring(4, {10, 10, 10, 50}, 4, BS_HOLLOW).at(10, 30), 0U); // an empty rectangle
}

TEST(Shapes, RejectsUnsupportedArguments) {
    const LOGBRUSH hatched{2, 0, 0};
    EXPECT_EQ(CreatePen(1, 3, 0), nullptr);
    EXPECT_EQ(CreatePen(PS_SOLID, -1, 0), nullptr);
    EXPECT_EQ(CreateBrushIndirect(&hatched), nullptr);
    EXPECT_EQ(CreateBrushIndirect(nullptr), nullptr);
    EXPECT_FALSE(RoundRect(nullptr, 0, 0, 9, 9, 2, 2));
}
