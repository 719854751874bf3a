// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/list_view.h"

#include "catalogue/selection.h"
#include "render/page.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "support/frame_test.h"
#include "support/png_files.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace {

// The lines of a full page in frame coordinates.
struct ListLayout {
    std::int32_t lineHeight;
    std::int32_t page;
    RECT firstLine;
    POINT step; // from line to line
    LONG edge;  // at a quarter turn: where the page ends, on the side of the picture
};

class ListViewTest : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        settings.statusBarForeColor = statusColor;
    }

    // The lines start next to the middle of the frame at 0 and 90 and next to the screen edge at 180 and -90.
    ListLayout layout() const {
        const std::int32_t h = statusBarHeight;
        selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, 0);
        const std::int32_t line = textHeight(dc);
        const LONG side = (isQuarterTurn(settings.orientation) ? width : height) - h;
        const std::int32_t page = std::max(side / line / 2, 1);
        const LONG margin = std::max<LONG>(side / 2 - page * line, 0) / 2;
        const LONG start = std::max<LONG>(width / 2, h + page * line); // at 90
        switch (settings.orientation) {
        case 90:
            return {line, page, {start - line, height / 2, start, height}, {-line, 0}, start};
        case 180:
            return {line, page, {0, height - margin - line, width / 2, height - margin}, {0, -line}, 0};
        case -90:
            return {line, page, {margin, height / 2, margin + line, height}, {line, 0}, margin + page * line};
        default:
            return {line, page, {0, side / 2, width / 2, side / 2 + line}, {0, line}, 0};
        }
    }
};

TEST_F(ListViewTest, KeepsTitlesAndHighlightBarInTheLowerLeftQuarter) {
    title = "Game";
    setGames(250);
    settings.fontColor = 0x00FFFF;
    for (const auto& size : {std::array{640, 480}, std::array{1280, 1024}, std::array{333, 777}}) {
        resizeFrame(size[0], size[1]);
        for (const auto& points : {std::array{8, 8}, std::array{18, 12}, std::array{18, 36}}) {
            settings.fontSize = points[0];
            settings.statusBarFontSize = points[1];
            for (const std::int32_t rotation : {0, 90, 180, -90}) {
                settings.orientation = rotation;
                topIndex = 0;
                selectedIndex = 0;
                draw();
                const ListLayout list = layout();
                ASSERT_GT(list.page, 2);
                for (const std::int32_t line : {0, 1, list.page - 1}) {
                    topIndex = 0;
                    selectedIndex = line;
                    draw();
                    ASSERT_EQ(topIndex, 0);
                    const RECT& first = list.firstLine;
                    const RECT place{first.left + line * list.step.x, first.top + line * list.step.y,
                                     first.right + line * list.step.x, first.bottom + line * list.step.y};
                    EXPECT_EQ(extentOf(barColor), place) << rotation << ": line " << line;
                }
                const RECT status = extentOf(statusColor);
                EXPECT_EQ((status.right - status.left) * (status.bottom - status.top),
                          statusBarHeight * (isQuarterTurn(rotation) ? height : width));
                const RECT ink = extentOf(settings.fontColor);
                EXPECT_TRUE(contains({0, 0, width, height}, ink) && ink.right > 0);
            }
        }
    }
}

TEST_F(ListViewTest, StartsAllTitlesInOneColumn) {
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        LONG starts[2];
        for (const bool isLong : {false, true}) {
            title = isLong ? "H" + std::string(40, 'H') : "H";
            setGames(25);
            selectedIndex = 24;
            topIndex = 0;
            settings.highlightBackColor = paper;
            draw();
            const RECT ink = extentOf(0xFFFFFF);
            starts[isLong] = rotation == 0     ? ink.left
                             : rotation == 90  ? ink.top - height / 2
                             : rotation == 180 ? width / 2 - ink.right
                                               : height - ink.bottom;
            const RECT& line = layout().firstLine;
            const bool runsOn = rotation == 0     ? ink.right > line.right + 100
                                : rotation == 90  ? ink.bottom == height
                                : rotation == 180 ? ink.left == 0
                                                  : ink.top < line.top - 100;
            EXPECT_EQ(runsOn, isLong) << rotation << ": " << ink;
        }
        EXPECT_EQ(starts[0], starts[1]) << rotation;
        EXPECT_GE(starts[0], 6) << rotation;
        EXPECT_LE(starts[0], 9) << rotation;
    }
}

TEST_F(ListViewTest, MovesPicturesClearOfLinesAndStatusBar) {
    std::free(settings.flyerDir);
    settings.flyerDir = strdup(".");
    settings.previewPictures = previewFlyers;
    settings.highlightBackColor = paper;
    settings.fontColor = paper;
    PngForm form{PNG_COLOR_TYPE_PALETTE, 8};
    form.width = 128;
    form.height = 256;
    form.evenColor = 99;
    folder.write("g0.png", pngBytes(form)); // as wide as fits at a quarter turn
    std::swap(form.width, form.height);
    folder.write("g1.png", pngBytes(form)); // likewise at 180
    for (const std::int32_t listPoints : {8, 9, 10, 11, 12, 18}) {
        settings.fontSize = listPoints;
        for (const std::int32_t statusPoints : {8, 13, 36}) {
            settings.statusBarFontSize = statusPoints;
            for (const std::int32_t rotation : {90, 180, -90}) {
                settings.orientation = rotation;
                selectedIndex = rotation == 180 ? 1 : 0;
                draw();
                const RECT seen = extentOf(0x636363);
                const LONG edge = layout().edge;
                const LONG h = statusBarHeight;
                const LONG top = (height - h) / 2;
                const LONG high = height - h - top; // same height as at 0
                if (rotation == 180) {
                    EXPECT_EQ(seen.right - seen.left, 310);
                    EXPECT_EQ(seen.bottom - seen.top, 155);
                    EXPECT_EQ(seen.left + seen.right, 2 * 480);
                    EXPECT_NEAR(seen.top + seen.bottom, 2 * top + high, 2);
                    continue;
                }
                const bool barIsRight = rotation == -90;
                const LONG left = barIsRight ? std::min<LONG>(325, width - h - 310)
                                             : std::min<LONG>(std::max<LONG>(325, edge), 330);
                EXPECT_EQ(seen.left, std::max(left, edge)) << rotation << ": " << h;
                EXPECT_EQ(seen.right, left + 310) << rotation;
                EXPECT_EQ(seen.bottom - seen.top, 155);
                EXPECT_NEAR(seen.top + seen.bottom, 2 * top + high, 2) << rotation;
                EXPECT_TRUE(h > 20 || seen.right - seen.left == 310)
                    << "the picture is covered although there is enough space";
            }
        }
    }
    std::free(settings.cabinetDir);
    settings.cabinetDir = strdup("cabinets");
    std::filesystem::create_directory("cabinets");
    folder.write("cabinets/g2.png", pngBytes(form));
    selectedIndex = 2;
    draw();
    EXPECT_EQ(extentOf(0x636363).right, 0) << "the list view uses another directory than the setting's";
}

} // namespace
