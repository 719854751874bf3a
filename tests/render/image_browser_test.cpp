// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/image_browser.h"

#include "catalogue/selection.h"
#include "platform/test_access.h"
#include "render/page.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "support/frame_test.h"
#include "support/png_files.h"

#include <climits>
#include <cstdlib>
#include <cstring>

namespace {

constexpr COLORREF ringColor = 0x0000FF; // red
constexpr COLORREF page = 0x400000;

constexpr std::int32_t rotations[] = {0, 90, 180, -90};

COLORREF gray(int level) {
    return static_cast<COLORREF>(level * 0x010101);
}

// The marquee of each game has its own gray level.
class ImageBrowserTest : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        settings.menuType = menuTypeImageBrowser;
        settings.previewBackgroundColor = page;
        settings.previewHighlightBackColor = ringColor;
        settings.statusBarForeColor = statusColor;
        settings.previewPictures = previewFlyers;
        char** const directories[] = {&settings.marqueeDir, &settings.cabinetDir, &settings.snapshotDir,
                                      &settings.flyerDir, &settings.titleDir};
        for (char** directory : directories) {
            std::free(*directory);
            *directory = strdup("empty");
        }
        std::free(settings.marqueeDir);
        settings.marqueeDir = strdup(".");
        for (int game = 0; game < 25; ++game) {
            addArt("g" + std::to_string(game), levelOf(game));
        }
    }

    static int levelOf(int game) { return 20 + 9 * game; }

    void addArt(const std::string& path, int level, int artWidth = 4, int artHeight = 4) const {
        PngForm form{PNG_COLOR_TYPE_PALETTE, 8};
        form.width = artWidth;
        form.height = artHeight;
        form.evenColor = level;
        folder.write(path + ".png", pngBytes(form));
    }

    RECT tileExtent(int game) const { return extentOf(gray(levelOf(game))); }

    // Selects a font with exactly this line height.
    void selectLineHeight(std::int32_t wanted) const {
        for (std::int32_t size = 6; size < 40; ++size) {
            selectFont(dc, settings.fontFace, size, 0, 0);
            if (textHeight(dc) == wanted) {
                return;
            }
        }
        FAIL() << "no font of this height";
    }

    void drawBrowser(const RECT& area) {
        fillRect(dc, {0, 0, width, height}, paper);
        ++viewGeneration;
        drawImageBrowser(dc, bitmap, &area);
    }
};

TEST_F(ImageBrowserTest, LaysOutTheTiles) {
    const struct {
        std::int32_t rotation;
        int last; // index of the last tile on the page
        RECT first;
        RECT lastTile; // clipped to the frame
    } rows[] = {
        {0, 3, {20, 20, 340, 104}, {20, 332, 340, 416}},
        {90, 5, {528, 20, 620, 340}, {0, 20, 60, 340}},
        {-90, 5, {20, 120, 112, 440}, {580, 120, 640, 440}},
        {180, 3, {300, 348, 620, 440}, {300, 12, 620, 104}},
    };
    selectLineHeight(20);
    const RECT area{0, 0, 640, 460};
    for (const auto& row : rows) {
        settings.orientation = row.rotation;
        topIndex = 0;
        selectedIndex = row.last;
        drawBrowser(area);
        EXPECT_EQ(topIndex, 0) << "this tile is on the next page";
        EXPECT_EQ(tileExtent(0), row.first) << row.rotation;
        EXPECT_EQ(tileExtent(row.last + 1).right, 0);
        selectedIndex = 0;
        drawBrowser(area);
        EXPECT_EQ(tileExtent(row.last), row.lastTile) << row.rotation;
        // The stroke of the ring is one spacer wide and starts at the edge of the tile.
        const RECT ring = extentOf(ringColor);
        EXPECT_NEAR(ring.left, row.first.left - 20, 1) << row.rotation;
        EXPECT_NEAR(ring.top, row.first.top - 20, 1) << row.rotation;
        EXPECT_NEAR(ring.right, row.first.right + 20, 1) << row.rotation;
        EXPECT_NEAR(ring.bottom, row.first.bottom + 20, 1) << row.rotation;
        EXPECT_NE(pixelAt(ring.left + 4, ring.top + 4), pixelOfColor(ringColor)) << "corner is not round";
    }
    resizeFrame(480, 480);
    settings.orientation = 0;
    drawBrowser({0, 0, 480, 460});
    EXPECT_EQ(settings.previewModeHeight, (460 - 40) / 5) << "a square frame counts as landscape";
    resizeFrame(480, 640);
    drawBrowser({0, 0, 480, 620});
    EXPECT_EQ(settings.previewModeHeight, (620 - 40) / 9);
}

TEST_F(ImageBrowserTest, ReadsTheMarqueesOfAPageOnce) {
    selectedIndex = 0;
    draw();
    const RECT second = tileExtent(1);
    ASSERT_GT(second.right, 0);
    addArt("g1", 251); // visible only when the file is read again
    for (selectedIndex = 1; selectedIndex < 4; ++selectedIndex) {
        draw();
        ASSERT_EQ(topIndex, 0);
        EXPECT_EQ(extentOf(gray(251)).right, 0) << selectedIndex;
    }
    selectedIndex = 1;
    draw();
    EXPECT_GE(tileExtent(1).bottom - tileExtent(1).top, second.bottom - second.top - 2)
        << "the previous ring is still on the page";
    ++viewGeneration;
    draw();
    EXPECT_EQ(extentOf(gray(251)).left, second.left);
    settings.orientation = 180; // as the information window does, without a new viewGeneration
    draw();
    EXPECT_GE(extentOf(gray(251)).left, width / 2 - 40) << "the page was not redrawn for the rotation";
}

TEST_F(ImageBrowserTest, MovesByWholePages) {
    draw();
    std::int32_t tiles = 0;
    while (tileExtent(tiles).right > 0) {
        ++tiles;
    }
    ASSERT_GE(tiles, 3);
    setGames(static_cast<std::size_t>(2 * tiles + 1));
    const struct {
        std::int32_t selected;
        std::int32_t top;
    } steps[] = {{tiles - 1, 0}, {tiles, tiles}, {2 * tiles, tiles + 1}, {tiles + 1, tiles + 1},
                 {tiles, 1},     {0, 0},         {2 * tiles, tiles + 1}};
    for (const auto& step : steps) {
        selectedIndex = step.selected;
        draw();
        EXPECT_EQ(topIndex, step.top) << step.selected;
        EXPECT_GT(tileExtent(topIndex).right, 0) << "the page was not redrawn";
    }
    setGames(2);
    topIndex = 0;
    selectedIndex = 1;
    ++viewGeneration;
    draw();
    EXPECT_EQ(topIndex, 0);
    EXPECT_EQ(tileExtent(2).right, 0);
}

TEST_F(ImageBrowserTest, PutsPicturesOppositeTheTiles) {
    std::free(settings.cabinetDir);
    std::free(settings.flyerDir);
    settings.cabinetDir = strdup("cabinets");
    settings.flyerDir = strdup("flyers");
    std::filesystem::create_directory("cabinets");
    std::filesystem::create_directory("flyers");
    std::filesystem::create_directory("empty");
    addArt("cabinets/g0", 5, 128, 256);
    // At a quarter turn two pictures of full width fit beside a low status bar, but not beside a high one.
    for (const auto& [statusPoints, wideFlyer] :
         {std::pair(10, false), std::pair(10, true), std::pair(36, false), std::pair(36, true)}) {
        settings.statusBarFontSize = statusPoints;
        addArt("flyers/g0", 7, wideFlyer ? 256 : 128, wideFlyer ? 128 : 256);
        for (const std::int32_t rotation : rotations) {
            settings.orientation = rotation;
            ++viewGeneration;
            draw();
            const RECT cabinet = extentOf(gray(5));
            const RECT flyer = extentOf(gray(7));
            SCOPED_TRACE(::testing::Message() << rotation << ": " << cabinet << " and " << flyer);
            const LONG h = statusBarHeight;
            const LONG high = (height - h) / 2;       // height of the upper picture area at 0
            const LONG highFlyer = height - h - high; // of the lower one
            const bool turned = isQuarterTurn(rotation);
            const SIZE flyerSize = turned == wideFlyer ? SIZE{highFlyer / 2, highFlyer} : SIZE{310, 155};
            const SIZE cabinetSize = turned ? SIZE{310, 155} : SIZE{high / 2, high};
            const LONG cut = rotation == 0 && wideFlyer ? 5 : 0; // beyond the frame
            EXPECT_EQ(flyer.right - flyer.left, flyerSize.cx - cut);
            EXPECT_EQ(flyer.bottom - flyer.top, flyerSize.cy);
            const RECT bar = extentOf(statusColor);
            EXPECT_EQ((bar.right - bar.left) * (bar.bottom - bar.top), h * (turned ? height : width))
                << "the bar is covered";
            // As read, the cabinet is above the flyer and both are at the edge opposite the tiles.
            const LONG flyerMiddle = rotation == 0     ? (flyer.top + flyer.bottom) / 2
                                     : rotation == 180 ? height - (flyer.top + flyer.bottom) / 2
                                     : rotation == 90  ? width - (flyer.left + flyer.right) / 2
                                                       : (flyer.left + flyer.right) / 2;
            const LONG read = (turned ? width : height) - h;
            const LONG half = (turned ? flyerSize.cx : flyerSize.cy) / 2;
            EXPECT_NEAR(flyerMiddle, std::min(read - read / 4, read - half), 1);
            if (h > 20 && turned && !wideFlyer) {
                continue; // the flyer covers the end of the cabinet
            }
            EXPECT_EQ(cabinet.right - cabinet.left, cabinetSize.cx);
            EXPECT_EQ(cabinet.bottom - cabinet.top, cabinetSize.cy);
            const bool positioned =
                rotation == 0    ? cabinet.top == 0 && cabinet.left == 330 + (320 - cabinetSize.cx) / 2
                : rotation == 90 ? cabinet.bottom == height && flyer.bottom == height &&
                                       flyer.right <= cabinet.left && cabinet.right >= width - 2
                : rotation == 180
                    ? cabinet.left == 0 && flyer.left == 0 && flyer.bottom <= cabinet.top &&
                          cabinet.bottom >= height - 1
                    : cabinet.top == 0 && flyer.top == 0 && cabinet.right <= flyer.left && cabinet.left <= 2;
            EXPECT_TRUE(positioned);
        }
    }
    const RECT lower = extentOf(gray(7));
    settings.cabinetDir[0] = 'x';
    draw();
    EXPECT_EQ(extentOf(gray(7)), lower) << "another picture is drawn in place of the cabinet";
    addArt("empty/g1", 9);
    for (const std::int32_t rotation : rotations) {
        settings.orientation = rotation;
        ++viewGeneration;
        selectedIndex = 5; // the last tile, whose ring crosses the bar of a quarter turn
        draw();
        const RECT bar = extentOf(statusColor);
        EXPECT_EQ((bar.right - bar.left) * (bar.bottom - bar.top),
                  statusBarHeight * (isQuarterTurn(rotation) ? height : width));
        EXPECT_TRUE(rotation != 90 || extentOf(ringColor).left == bar.right) << "the ring overlaps the bar";
        selectedIndex = 1;
        draw();
        EXPECT_GT(extentOf(gray(9)).right, 0) << "the lower picture does not fall back to other directories";
    }
}

TEST_F(ImageBrowserTest, AcceptsExtremeFramesAndSettings) {
    const struct {
        int width;
        int height;
    } sizes[] = {{1, 1}, {64, 48}, {333, 777}, {3840, 2160}};
    for (const auto& size : sizes) {
        resizeFrame(size.width, size.height);
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{45294}}) {
            setGames(count);
            selectedIndex = std::max(visibleCount - 1, 0);
            for (const std::int32_t spacer : {0, 20, -7, INT_MAX}) {
                settings.previewModeSpacer = spacer;
                for (const std::int32_t rotation : rotations) {
                    settings.orientation = rotation;
                    settings.statusBarFontSize = rotation == 0 ? 36 : 8;
                    settings.showStatusBar = spacer != 0;
                    settings.menuType =
                        spacer == 20 && rotation < 0 ? menuTypeListView : menuTypeImageBrowser;
                    ++viewGeneration;
                    draw();
                    EXPECT_GE(topIndex, 0);
                    EXPECT_TRUE(count == 0 || topIndex <= selectedIndex);
                    EXPECT_GE(settings.previewModeHeight, count > 0 ? 1 : INT_MIN);
                }
            }
        }
    }
}

} // namespace
