// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include "platform/device_contexts.h"
#include "platform/drawing/context_table.h"
#include "platform/drawing/surface.h"
#include "platform/drawing_objects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr int side = 240;
constexpr std::uint32_t paper = 0x00204060;

constexpr LONG escapements[] = {0, -900, -1800, 900};

// Rotates a point of the square by the escapement. `far` is side - 1 for pixels and side for pixel corners.
POINT turned(LONG escapement, int x, int y, int far) {
    switch (escapement) {
    case -900:
        return {far - y, x};
    case -1800:
        return {far - x, far - y};
    case 900:
        return {y, far - x};
    default:
        return {x, y};
    }
}

// A square surface in the paper colour, with a font selected.
class Page {
public:
    Page(const char* face, int height, LONG escapement, bool emphasised = false) {
        surface.resize(side, side);
        surface.fill({0, 0, side, side}, paper);
        dc = createSurfaceDC(&surface);
        LOGFONTA description{};
        description.lfHeight = height;
        description.lfEscapement = escapement;
        description.lfWeight = emphasised ? 800 : 0;
        description.lfItalic = emphasised ? 1 : 0;
        std::strncpy(description.lfFaceName, face, sizeof(description.lfFaceName) - 1);
        font = CreateFontIndirectA(&description);
        SelectObject(dc, font);
        SetBkMode(dc, TRANSPARENT);
        surface.changed = false;
    }
    ~Page() { // the font is deleted while the context has it selected
        DeleteObject(font);
        deleteSurfaceDC(dc);
    }

    bool draw(int x, int y, std::string_view text) {
        return TextOutA(dc, x, y, text.data(), static_cast<int>(text.size())) != 0;
    }
    SIZE extent(std::string_view text) const {
        SIZE size{-1, -1};
        GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
        return size;
    }
    int width(std::string_view text) const { return extent(text).cx; }
    std::uint32_t pixel(int i) const { return surface.row(0)[i]; }
    std::uint32_t at(POINT place) const { return surface.row(place.y)[place.x]; }
    int inkedPixels() const {
        int count = 0;
        for (int i = 0; i < side * side; ++i) {
            count += pixel(i) != paper;
        }
        return count;
    }

    Surface surface;
    HDC dc = nullptr;
    HFONT font = nullptr;
};

} // namespace

TEST(Text, MetricsAndWidthsAreTheSameAtEveryEscapement) {
    const std::string_view text = "Wide \xA9 Area, ill'";
    for (const int height : {-9, -16, -37, 25}) {
        TEXTMETRICA upright{};
        const Page first("Liberation Sans", height, 0, true);
        ASSERT_TRUE(GetTextMetricsA(first.dc, &upright));
        EXPECT_EQ(upright.tmHeight, upright.tmAscent + upright.tmDescent);
        EXPECT_EQ(first.width(text), first.width(text.substr(0, 5)) + first.width(text.substr(5)));
        for (const LONG escapement : {-900, 900, -1800, 2700, -7200}) {
            TEXTMETRICA metrics{};
            const Page page("Liberation Sans", height, escapement, true);
            ASSERT_TRUE(GetTextMetricsA(page.dc, &metrics));
            EXPECT_EQ(std::memcmp(&metrics, &upright, sizeof(metrics)), 0) << escapement;
            EXPECT_EQ(page.width(text), first.width(text)) << escapement;
        }
    }
}

TEST(Text, OpaqueFillsExactlyTheCell) {
    for (const LONG escapement : escapements) {
        Page page("Liberation Sans", -20, escapement);
        const SIZE cell = page.extent("      ");
        SetBkMode(page.dc, OPAQUE);
        SetBkColor(page.dc, 0x0000AA);
        const POINT corner = turned(escapement, 30, 50, side);
        ASSERT_TRUE(page.draw(corner.x, corner.y, "      "));
        for (int i = 0; i < side * side; ++i) {
            const int x = i % side;
            const int y = i / side;
            const bool inside = x >= 30 && x < 30 + cell.cx && y >= 50 && y < 50 + cell.cy;
            ASSERT_EQ(page.at(turned(escapement, x, y, side - 1)), inside ? 0xAA0000U : paper)
                << escapement << ": " << x << ' ' << y;
        }
    }
}

TEST(Text, GlyphsRotateWithTheEscapement) {
    // The rasteriser's rounding depends on the direction; a larger difference means another shape.
    constexpr int tolerance = 32;
    const std::string_view text = "Hg\xE9 Wo(4)";
    for (const int height : {-10, -16, -30}) {
        int regularInk = 100;
        for (const bool emphasised : {false, true}) {
            Page upright("Liberation Sans", height, 0, emphasised);
            ASSERT_TRUE(upright.draw(40, 60, text));
            ASSERT_GT(upright.inkedPixels(), regularInk);
            regularInk = upright.inkedPixels();
            for (const LONG escapement : escapements) {
                Page page("Liberation Sans", height, escapement, emphasised);
                const POINT corner = turned(escapement, 40, 60, side);
                ASSERT_TRUE(page.draw(corner.x, corner.y, text));
                for (int i = 0; i < side * side; ++i) {
                    const POINT place = turned(escapement, i % side, i / side, side - 1);
                    const auto wanted = static_cast<int>(upright.pixel(i) & 0xFF);
                    ASSERT_NEAR(static_cast<int>(page.at(place) & 0xFF), wanted, tolerance)
                        << height << ' ' << escapement << ": " << i % side << ' ' << i / side;
                }
            }
        }
    }
}

TEST(Text, GlyphsStayInTheCellAndHaveTheTextColour) {
    for (const int height : {-12, -160}) { // the larger size is drawn as outlines
        Page page("Liberation Sans", height, 0);
        SetTextColor(page.dc, 0x0000FF);
        const SIZE cell = page.extent("H");
        ASSERT_TRUE(page.draw(20, 20, "H"));
        bool solid = false;
        for (int i = 0; i < side * side; ++i) {
            const std::uint32_t pixel = page.pixel(i);
            const int x = i % side;
            const int y = i / side;
            const bool inside = x >= 20 && x < 20 + cell.cx && y >= 20 && y < 20 + cell.cy;
            ASSERT_TRUE(pixel == paper || inside) << x << ' ' << y;
            ASSERT_EQ(pixel >> 24, 0U);
            solid = solid || pixel == 0xFF0000;
        }
        EXPECT_TRUE(solid) << height;
        EXPECT_TRUE(page.surface.changed);
    }
}

TEST(Text, ControlCharactersAreBlanks) {
    Page expected("Arial", -20, 0);
    expected.draw(10, 10, "A B");
    for (const int letter : {0, 1, int{'\t'}, int{'\n'}, int{'\r'}, 0x1F, 0x7F}) {
        const std::string text = {'A', static_cast<char>(letter), 'B'};
        Page page("Arial", -20, 0);
        page.draw(10, 10, text);
        EXPECT_EQ(page.width(text), page.width("A B")) << letter;
        EXPECT_TRUE(
            std::equal(page.surface.row(0), page.surface.row(0) + side * side, expected.surface.row(0)))
            << letter;
    }
}

TEST(Text, LongAndDistantTextsAreClipped) {
    const std::string million(1000000, 'W');
    Page expected("Liberation Sans", -20, 0);
    const int step = expected.width("W");
    EXPECT_EQ(expected.width(million), 1000000 * step);
    EXPECT_TRUE(expected.draw(-step / 2, 10, million.substr(0, 14)));
    Page withoutCutLetter("Liberation Sans", -20, 0);
    EXPECT_TRUE(withoutCutLetter.draw(step - step / 2, 10, million.substr(0, 13)));
    EXPECT_GT(expected.inkedPixels(), withoutCutLetter.inkedPixels());
    for (const int hidden : {0, 3, 999900}) {
        Page page("Liberation Sans", -20, 0);
        EXPECT_TRUE(page.draw(-hidden * step - step / 2, 10, million));
        EXPECT_EQ(std::memcmp(page.surface.row(0), expected.surface.row(0), side * side * 4), 0) << hidden;
    }
    for (const LONG escapement : escapements) {
        Page page("Liberation Sans", -20, escapement);
        SetBkMode(page.dc, OPAQUE);
        for (const int x : {INT_MIN, -100000, 100000, INT_MAX}) {
            for (const int y : {INT_MIN, -100000, 100000, INT_MAX}) {
                EXPECT_TRUE(page.draw(x, y, "nowhere near"));
            }
        }
        EXPECT_EQ(page.inkedPixels(), 0);
    }
    EXPECT_EQ(Page("Liberation Sans", -4000, 0).width(million), INT_MAX);
}

TEST(Text, DrawsUnknownLettersAndRejectsBadArguments) {
    Page page("DejaVu Sans", -16, 0);
    SIZE size{};
    EXPECT_TRUE(TextOutA(page.dc, 5, 5, nullptr, 0));
    EXPECT_FALSE(TextOutA(page.dc, 5, 5, nullptr, 3));
    EXPECT_FALSE(TextOutA(page.dc, 5, 5, "abc", -1));
    EXPECT_FALSE(TextOutA(nullptr, 5, 5, "abc", 3));
    EXPECT_FALSE(GetTextExtentPoint32A(page.dc, "abc", -1, &size));
    EXPECT_FALSE(GetTextMetricsA(page.dc, nullptr));
    EXPECT_EQ(page.inkedPixels(), 0);
    for (const std::string_view letter : {"\x81", "\xFF"}) {
        const int before = page.inkedPixels();
        EXPECT_TRUE(page.draw(before, 100, letter));
        EXPECT_GT(page.inkedPixels(), before);
    }
}
