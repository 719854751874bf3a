#include "render/composition.h"

#include "render/attract_movie.h"
#include "render/primitives.h"
#include "support/frame_test.h"
#include "support/movie_files.h"
#include "support/png_files.h"

#include <array>
#include <cstdlib>
#include <cstring>

namespace {

using CompositionTest = FrameTest;

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

// The lines of a full page, and the places of pictures, in frame coordinates.
struct ListLayout {
    std::int32_t lineHeight;
    std::int32_t page;
    RECT firstLine;
    POINT step; // from line to line
    LONG edge;  // where the page ends towards the picture, at a quarter turn
};

class ListViewTest : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        settings.statusBarForeColor = statusColor;
    }

    // Lines beside the middle of the frame at 0 and 90, beside the edge of the screen at 180 and -90.
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

TEST_F(ListViewTest, KeepsAllTitlesAndTheBarInTheLowerLeftQuarter) {
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

TEST_F(ListViewTest, TitlesBeginInOneColumnHoweverLongTheyAre) {
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        LONG beginnings[2];
        for (const bool isLong : {false, true}) {
            title = isLong ? "H" + std::string(40, 'H') : "H";
            setGames(25);
            selectedIndex = 24;
            topIndex = 0;
            settings.highlightBackColor = paper;
            draw();
            const RECT ink = extentOf(0xFFFFFF);
            beginnings[isLong] = rotation == 0     ? ink.left
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
        EXPECT_EQ(beginnings[0], beginnings[1]) << rotation;
        EXPECT_GE(beginnings[0], 6) << rotation;
        EXPECT_LE(beginnings[0], 9) << rotation;
    }
}

TEST_F(ListViewTest, APictureGivesWayToTheLinesAndTheStatusBar) {
    std::free(settings.flyerDir);
    settings.flyerDir = strdup(".");
    settings.previewPictures = previewFlyers;
    settings.highlightBackColor = paper;
    settings.fontColor = paper;
    PngForm form{PNG_COLOR_TYPE_PALETTE, 8};
    form.width = 128;
    form.height = 256;
    form.evenColor = 99;
    folder.write("g0.png", pngBytes(form));
    for (const std::int32_t listPoints : {8, 9, 10, 11, 12, 18}) {
        settings.fontSize = listPoints;
        for (const std::int32_t statusPoints : {8, 13, 36}) {
            settings.statusBarFontSize = statusPoints;
            for (const std::int32_t rotation : {90, 180, -90}) {
                settings.orientation = rotation;
                draw();
                const RECT seen = extentOf(0x636363);
                const LONG edge = layout().edge;
                const LONG h = statusBarHeight;
                const LONG top = (height - h) / 2;
                const LONG high = height - h - top; // as at 0
                if (rotation == 180) {
                    EXPECT_EQ(seen.right - seen.left, high / 2);
                    EXPECT_EQ(seen.bottom - seen.top, high);
                    EXPECT_NEAR(seen.left + seen.right, 2 * 480, 1);
                    EXPECT_EQ(seen.top, top);
                    continue;
                }
                const bool right = rotation == -90; // the side of the bar
                const LONG left = right ? std::max<LONG>(edge, std::min<LONG>(325, width - h - 310))
                                        : std::min<LONG>(std::max<LONG>(325, edge), 330);
                EXPECT_EQ(seen.left, right ? left : std::max(left, edge)) << rotation << ": " << h;
                EXPECT_EQ(seen.right, std::min(left + 310, right ? width - h : width)) << rotation;
                EXPECT_EQ(seen.bottom - seen.top, 155);
                EXPECT_NEAR(seen.top + seen.bottom, 2 * top + high, 2) << rotation;
                EXPECT_TRUE(h > 20 || seen.right - seen.left == 310)
                    << "there is room for lines, picture and bar";
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

TEST_F(CompositionTest, KeepsTheBannerInItsPlaceAndTheBarAboveIt) {
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
        EXPECT_NE(textHeight(dc), h) << "the page keys measure the font of the titles";
    }
}

TEST_F(CompositionTest, AMovieLiesInTheLowerRightQuarterAtEveryRotation) {
    mainWindow = openFrame();
    std::free(settings.attractDir);
    settings.attractDir = strdup(".");
    AviWriter writer({800, 600, 10, 0}); // of the shape that a movie of unknown size is taken for
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
    }
    closeAttractMovie();
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
        const RECT bar = extentOf(statusColor);
        ASSERT_GT(bar.right, 0);
        const LONG middleX = (bar.left + bar.right) / 2;
        const LONG middleY = (bar.top + bar.bottom) / 2;
        const POINT end = rotation == 0     ? POINT{bar.right - 2, middleY}
                          : rotation == 90  ? POINT{middleX, bar.bottom - 2}
                          : rotation == 180 ? POINT{bar.left + 1, middleY}
                                            : POINT{middleX, bar.top + 1};
        EXPECT_EQ(pixelAt(end.x, end.y), pixelOf(statusColor)) << "nothing looks out behind the position";
    }
}

} // namespace
