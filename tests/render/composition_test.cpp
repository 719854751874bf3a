// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/composition.h"

#include "catalogue/selection.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "render/attract_movie.h"
#include "render/page.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "support/frame_test.h"
#include "support/movie_files.h"
#include "support/png_files.h"

#include <array>
#include <cstdlib>
#include <cstring>

namespace {

using CompositionTest = FrameTest;

TEST_F(CompositionTest, PutsTheStatusBarAtTheBottomOfTheTurnedScreen) {
    settings.statusBarForeColor = 0x00FFFF;
    settings.fontColor = paper;
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        draw();
        const std::int32_t h = statusBarHeight;
        EXPECT_GT(h, 10);
        const RECT expected = rotation == 0     ? RECT{0, 480 - h, 640, 480}
                              : rotation == 90  ? RECT{0, 0, h, 480}
                              : rotation == 180 ? RECT{0, 0, 640, h}
                                                : RECT{640 - h, 0, 640, 480};
        EXPECT_EQ(extentOf(statusColor), expected) << rotation;
        const RECT ink = extentOf(0x00FFFF);
        EXPECT_TRUE(contains(expected, ink)) << rotation << ": " << ink;
        const LONG length = isQuarterTurn(rotation) ? ink.bottom - ink.top : ink.right - ink.left;
        EXPECT_GT(length, (isQuarterTurn(rotation) ? 480 : 640) - 40) << "no texts at both ends";
    }
    settings.showStatusBar = 0;
    draw();
    EXPECT_EQ(statusBarHeight, 0);
    EXPECT_EQ(extentOf(statusColor).right, 0);
}

TEST_F(CompositionTest, DrawsTheHighlightBarUnderTheSelectedLine) {
    settings.fontColor = paper;
    selectedIndex = 3;
    draw();
    selectFont(dc, settings.fontFace, settings.fontSize, 0, 0);
    const std::int32_t line = textHeight(dc);
    const LONG top = (480 - statusBarHeight) / 2 + 3 * line;
    EXPECT_EQ(extentOf(barColor), (RECT{0, top, 320, top + line}));
    title = "MMMMMMMM";
    setGames(25);
    draw();
    int ink = 0;
    for (LONG x = 6; x < 100; ++x) {
        ink += pixelAt(x, top + line / 2) != pixelOfColor(barColor) ? 1 : 0;
    }
    EXPECT_GT(ink, 20) << "no title on the bar";
}

TEST_F(CompositionTest, ScrollsByWholePages) {
    draw();
    selectFont(dc, settings.fontFace, settings.fontSize, 0, 0);
    const std::int32_t page = (480 - statusBarHeight) / textHeight(dc) / 2;
    ASSERT_GT(page, 4);
    setGames(static_cast<std::size_t>(2 * page + page / 2));
    const std::int32_t last = visibleCount - page;
    const struct {
        std::int32_t selected;
        std::int32_t top;
    } steps[] = {{page - 1, 0},
                 {page, page},
                 {2 * page - 1, page},
                 {2 * page, last},
                 {visibleCount - 1, last},
                 {last, last},
                 {last - 1, last - page},
                 {0, 0},
                 {visibleCount - 1, last}};
    for (const auto& step : steps) {
        selectedIndex = step.selected;
        draw();
        EXPECT_EQ(topIndex, step.top) << step.selected;
    }
    setGames(2);
    topIndex = 0;
    selectedIndex = 1;
    draw();
    EXPECT_EQ(topIndex, 0);
}

TEST_F(CompositionTest, KeepsTheBannerInPlaceUnderTheStatusBar) {
    std::free(settings.marqueeDir);
    settings.marqueeDir = strdup(".");
    PngForm form;
    form.colorType = PNG_COLOR_TYPE_PALETTE;
    form.evenColor = 99;
    folder.write("generic.png", pngBytes(form));
    settings.statusBarForeColor = statusColor;
    settings.fontColor = barColor;
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        draw();
        const LONG h = statusBarHeight;
        const LONG bottom = (height - h) / 2 - 20;
        const RECT seen = rotation == 0     ? RECT{0, 0, width, bottom}
                          : rotation == 90  ? RECT{h, 0, width, bottom}
                          : rotation == 180 ? RECT{0, h, width, bottom}
                                            : RECT{0, 0, width - h, bottom};
        EXPECT_EQ(extentOf(0x636363), seen) << rotation;
        const RECT bar = extentOf(statusColor);
        EXPECT_EQ((bar.right - bar.left) * (bar.bottom - bar.top),
                  h * (isQuarterTurn(rotation) ? height : width));
        EXPECT_NE(textHeight(dc), h) << "the font of the titles is not selected, which the page keys measure";
    }
}

TEST_F(CompositionTest, PutsMoviesInTheLowerRightQuarterAtEveryRotation) {
    mainWindow = openFrame();
    waitForPlayer();
    std::free(settings.attractDir);
    settings.attractDir = strdup(".");
    AviWriter writer({800, 600, 10, 0}); // 4:3, which is assumed while the size of a movie is unknown
    writer.addPicture(std::vector<std::uint32_t>(800 * 600, 0xFFFFFF));
    folder.write("g0.avi", writer.content());
    for (const std::int32_t menuType : {menuTypeListView, menuTypeImageBrowser}) {
        settings.menuType = menuType;
        for (const std::int32_t rotation : {0, 90, 180, -90}) {
            settings.orientation = rotation;
            draw();
            RECT window{};
            ASSERT_TRUE(GetWindowRect(movieWindow, &window));
            const LONG bottom = height - statusBarHeight;
            EXPECT_EQ(window.top, bottom / 2) << rotation;
            EXPECT_NEAR(window.bottom, bottom, 1) << rotation;
            EXPECT_NEAR(window.left + window.right, 320 + 640, 2) << rotation;
        }
        selectedIndex = 1;
        draw();
        EXPECT_EQ(movieWindow, nullptr) << "this game has no movie";
        selectedIndex = 0;
    }
}

TEST_F(CompositionTest, DrawsOnlyTheBackgroundOfAnEmptyView) {
    draw();
    const std::int32_t before = statusBarHeight;
    setGames(0);
    draw();
    EXPECT_EQ(statusBarHeight, before);
    EXPECT_EQ(extentOf(paper), (RECT{0, 0, 640, 480}));
    EXPECT_EQ(extentOf(statusColor).right, 0);
    settings.menuType = menuTypeImageBrowser;
    settings.previewBackgroundColor = 0x123456;
    draw();
    EXPECT_EQ(pixelAt(1, 1), pixelOfColor(0x123456));
}

TEST_F(CompositionTest, DrawsGamesWithMissingAndVeryLongTexts) {
    video.screen = nullptr;
    title = std::string(1000, 'W');
    maker = std::string(1000, 'M');
    setGames(3);
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        draw();
        const RECT bar = extentOf(statusColor);
        ASSERT_GT(bar.right, 0);
        const LONG middleX = (bar.left + bar.right) / 2;
        const LONG middleY = (bar.top + bar.bottom) / 2;
        const POINT end = rotation == 0     ? POINT{bar.right - 2, middleY}
                          : rotation == 90  ? POINT{middleX, bar.bottom - 2}
                          : rotation == 180 ? POINT{bar.left + 1, middleY}
                                            : POINT{middleX, bar.top + 1};
        EXPECT_EQ(pixelAt(end.x, end.y), pixelOfColor(statusColor))
            << "the game text shows after the position";
    }
}

} // namespace
