// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/primitives.h"

#include "config/settings.h"
#include "platform/device_contexts.h"
#include "platform/text.h"

#include <gtest/gtest.h>

namespace {

class PrimitivesTest : public ::testing::Test {
protected:
    PrimitivesTest() : dc(CreateCompatibleDC(nullptr)) {}
    ~PrimitivesTest() override { DeleteDC(dc); }

    HDC dc;
};

TEST_F(PrimitivesTest, MeasuresTextEquallyAtEveryRotation) {
    ASSERT_EQ(selectFont(dc, "Arial", 18, 0, 0), 1);
    const std::int32_t height = textHeight(dc);
    const std::int32_t width = textWidth(dc, "Some Game (set 1)");
    EXPECT_GE(height, 24) << "18 points are an em of 24 pixels";
    EXPECT_LE(height, 32);
    for (const std::int32_t rotation : {90, -90, 180}) {
        ASSERT_EQ(selectFont(dc, "Arial", 18, rotation, 0), 1);
        EXPECT_EQ(textHeight(dc), height);
        EXPECT_EQ(textWidth(dc, "Some Game (set 1)"), width);
    }
    EXPECT_EQ(textWidth(dc, ""), 0);
    selectFont(dc, "Arial", 18, 0, 1);
    EXPECT_NE(textWidth(dc, "Some Game (set 1)"), width) << "emphasis has no effect";
}

TEST_F(PrimitivesTest, ShortensTextsToTheWidth) {
    const std::string title = "The Very Long Title of a Game (World, set 1)";
    for (const int emphasis : {0, 1}) {
        selectFont(dc, "Arial", 18, 0, emphasis);
        const std::int32_t whole = textWidth(dc, title.c_str());
        EXPECT_EQ(shortenedText(dc, title.c_str(), whole), title);
        for (std::int32_t width = whole - 1; width > 0; width -= 7) {
            const std::string text = shortenedText(dc, title.c_str(), width);
            const std::size_t kept = text.size() - 3;
            ASSERT_EQ(text, title.substr(0, kept) + "...");
            EXPECT_TRUE(kept == 0 || textWidth(dc, text.c_str()) <= width) << text;
            EXPECT_TRUE(kept == 0 || text[kept - 1] != ' ') << text;
            // Two letters more, if there is a blank between, or else one would not fit.
            const std::size_t more = title[kept] == ' ' ? 2 : 1;
            EXPECT_GT(textWidth(dc, (title.substr(0, kept + more) + "...").c_str()), width) << text;
        }
    }
    EXPECT_EQ(shortenedText(dc, "", 0), "");
}

TEST_F(PrimitivesTest, SelectsFontsWithAnyFaceName) {
    const HGDIOBJ before = SelectObject(dc, CreateFontIndirectA(std::make_unique<LOGFONTA>().get()));
    ASSERT_NE(before, nullptr);
    for (const std::string& face :
         {std::string("Arial"), std::string(31, 'x'), std::string(500, 'y'), std::string()}) {
        ASSERT_EQ(selectFont(dc, face.c_str(), 12, 0, 0), 1) << face;
        EXPECT_GT(textHeight(dc), 0);
    }
    LOGFONTA tooLarge{};
    tooLarge.lfHeight = -5000;
    EXPECT_EQ(CreateFontIndirectA(&tooLarge), nullptr);
    const std::int32_t height = textHeight(dc);
    EXPECT_EQ(selectFont(dc, "Arial", 10000, 0, 0), 0);
    EXPECT_EQ(textHeight(dc), height) << "the previous font is not selected any more";
}

TEST_F(PrimitivesTest, CountsLinesAndTilesAsRead) {
    selectFont(dc, "Arial", 18, 0, 0);
    const std::int32_t line = textHeight(dc);
    settings.previewModeSpacer = 20;
    settings.previewModeHeight = 84;
    const struct {
        std::int32_t rotation;
        std::int32_t side;
    } rows[] = {{0, 460}, {180, 460}, {90, 640}, {-90, 640}};
    for (const auto& row : rows) {
        settings.orientation = row.rotation;
        EXPECT_EQ(linesThatFit(dc, 640, 460, 40), (row.side - 40) / line) << row.rotation;
        EXPECT_EQ(tileRows(640, 460, 40), (row.side - 60) / 104) << row.rotation;
        EXPECT_LT(linesThatFit(dc, 640, 460, 5000), 0) << "the result is clamped";
    }
    settings.previewModeSpacer = 0;
    settings.previewModeHeight = 0;
    EXPECT_EQ(tileRows(640, 460, 0), 640) << "division by zero";
}

TEST_F(PrimitivesTest, RotatesPointsAndTextOrigins) {
    const RECT rect{10, 20, 110, 220};
    const struct {
        std::int32_t rotation;
        POINT turned; // of (3, 5) on a surface of 100 by 50
        POINT origin;
    } rows[] = {{0, {3, 5}, {16, 22}},
                {90, {95, 3}, {108, 26}},
                {-90, {5, 47}, {12, 214}},
                {180, {97, 45}, {104, 218}}};
    for (const auto& row : rows) {
        settings.orientation = row.rotation;
        std::int32_t x = 3;
        std::int32_t y = 5;
        rotatePoint(x, y, 100, 50);
        EXPECT_EQ(x, row.turned.x) << row.rotation;
        EXPECT_EQ(y, row.turned.y) << row.rotation;
        EXPECT_EQ(textOrigin(rect, 6, 2).x, row.origin.x) << row.rotation;
        EXPECT_EQ(textOrigin(rect, 6, 2).y, row.origin.y) << row.rotation;
    }
}

} // namespace
