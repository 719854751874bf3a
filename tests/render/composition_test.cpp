#include "render/composition.h"

#include "config/settings.h"
#include "platform/device_context.h"
#include "platform/drawing.h"
#include "render/primitives.h"
#include "state/shared_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <vector>

static bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

static std::ostream& operator<<(std::ostream& stream, const RECT& rect) {
    return stream << rect.left << "," << rect.top << " " << rect.right << "," << rect.bottom;
}

namespace {

constexpr COLORREF paper = 0x000000;
constexpr COLORREF barColor = 0x00FF00;    // highlight
constexpr COLORREF statusColor = 0xFF0000; // blue

// A frame of its own with a number of made-up games.
class CompositionTest : public ::testing::Test {
protected:
    void SetUp() override {
        char empty[] = "missing.ini";
        iniPath = empty;
        loadSettings();
        settings.backgroundColor = paper;
        settings.fontColor = 0xFFFFFF;
        settings.highlightBackColor = barColor;
        settings.statusBarBackColor = statusColor;
        settings.statusBarForeColor = 0xFFFFFF;
        dc = CreateCompatibleDC(nullptr);
        setGames(25);
        resizeFrame(640, 480);
    }
    void TearDown() override {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }

    void resizeFrame(int newWidth, int newHeight) {
        width = newWidth;
        height = newHeight;
        bitmap = CreateCompatibleBitmap(dc, width, height);
        DeleteObject(SelectObject(dc, bitmap));
    }

    void setGames(std::size_t count) {
        records.assign(count, GameRecord{});
        pointers.clear();
        for (GameRecord& record : records) {
            record.description = title.data();
            record.manufacturer = maker.data();
            record.year = 1985;
            record.video = &video;
            record.input = &input;
            pointers.push_back(&record);
        }
        visibleGames = pointers.data();
        visibleCount = static_cast<std::int32_t>(count);
    }

    void draw() { drawScreen(dc, bitmap); }

    std::uint32_t pixelAt(int x, int y) const { return findDeviceContext(dc)->surface->row(y)[x]; }

    // The rectangle around all pixels of a colour, empty when there is none.
    RECT extentOf(COLORREF color) const {
        RECT extent{width, height, 0, 0};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (pixelAt(x, y) == pixelOf(color)) {
                    extent = {std::min(extent.left, x), std::min(extent.top, y),
                              std::max(extent.right, x + 1), std::max(extent.bottom, y + 1)};
                }
            }
        }
        return extent;
    }

    std::string title = "Title of a game";
    std::string maker = "Maker";
    char raster[7] = "raster";
    VideoInfo video{raster, orientationHorizontal, 320, 240};
    InputInfo input{2, 2, 1, controlJoy8Way};
    std::vector<GameRecord> records;
    std::vector<GameRecord*> pointers;
    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
    int width = 0;
    int height = 0;
};

bool contains(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

TEST_F(CompositionTest, PutsTheStatusBarAtTheFootOfTheTurnedScreen) {
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
        EXPECT_GT(length, (isQuarterTurn(rotation) ? 480 : 640) - 40) << "texts at both ends";
    }
    settings.showStatusBar = 0;
    draw();
    EXPECT_EQ(statusBarHeight, 0);
    EXPECT_EQ(extentOf(statusColor).right, 0);
}

TEST_F(CompositionTest, KeepsAllTitlesAndTheBarInTheLowerLeftQuarter) {
    settings.statusBarForeColor = statusColor;
    title = "Game";
    setGames(25);
    for (const auto& size : {std::array{640, 480}, std::array{1280, 1024}, std::array{333, 777}}) {
        resizeFrame(size[0], size[1]);
        for (const std::int32_t statusSize : {8, 12, 36}) {
            settings.statusBarFontSize = statusSize;
            for (const std::int32_t rotation : {0, 90, 180, -90}) {
                settings.orientation = rotation;
                topIndex = 0;
                for (selectedIndex = 0; selectedIndex < 4; ++selectedIndex) {
                    draw();
                    // The middle may be passed by what a full page needs beside a status bar on the left.
                    const LONG slack = rotation == 90 ? statusBarHeight / 2 + 1 : 0;
                    const RECT quarter{rotation == 90 ? statusBarHeight : 0,
                                       (rotation == 0 ? height - statusBarHeight : height) / 2,
                                       width / 2 + slack, rotation == 0 ? height - statusBarHeight : height};
                    const RECT bar = extentOf(barColor);
                    EXPECT_TRUE(contains(quarter, bar)) << rotation << ": " << bar << " in " << quarter;
                    const RECT ink = extentOf(0xFFFFFF);
                    EXPECT_TRUE(contains(quarter, ink)) << rotation << ": " << ink << " in " << quarter;
                }
            }
        }
    }
}

TEST_F(CompositionTest, PutsTheBarBehindTheSelectedLine) {
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
        ink += pixelAt(x, top + line / 2) != pixelOf(barColor) ? 1 : 0;
    }
    EXPECT_GT(ink, 20) << "the title stands on the bar";
}

TEST_F(CompositionTest, ShowsTheEndOfALongTitleAtEveryRotation) {
    settings.statusBarForeColor = statusColor;
    title = "A title that is longer than half of it";
    setGames(1);
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        draw();
        const RECT ink = extentOf(0xFFFFFF);
        selectFont(dc, settings.fontFace, settings.fontSize, rotation, 1);
        const LONG length = isQuarterTurn(rotation) ? ink.bottom - ink.top : ink.right - ink.left;
        EXPECT_GT(length, textWidth(dc, title.c_str()) - 12) << rotation << ": " << ink;
    }
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

TEST_F(CompositionTest, AnEmptyViewIsTheBareBackground) {
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
    EXPECT_EQ(pixelAt(1, 1), pixelOf(0x123456));
}

TEST_F(CompositionTest, ShowsGamesWithoutWordsAndWithTooManyOfThem) {
    video.screen = nullptr;
    title = std::string(1000, 'W');
    maker = std::string(1000, 'M');
    setGames(3);
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        draw();
        EXPECT_GT(extentOf(statusColor).right, 0) << "the position is written over the rest";
    }
}

} // namespace
