// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/turned_layout.h"

#include "catalogue/selection.h"
#include "render/page.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "render/turns.h"
#include "support/frame_test.h"
#include "support/png_files.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr COLORREF ringColor = 0x0000FF;
constexpr COLORREF textColor = 0x00FFFF;

constexpr std::int32_t rotations[] = {0, 90, -90, 180};
constexpr std::int32_t views[] = {menuTypeListView, menuTypeImageBrowser};

class TurnedLayoutTest : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        settings.layout = layoutTurned;
        startTurnedLayout();
        settings.previewPictures = previewScreenShots;
        settings.previewBackgroundColor = paper;
        settings.previewHighlightBackColor = ringColor;
        settings.fontColor = textColor;
        setFolder(settings.marqueeDir, "marquees");
        setFolder(settings.cabinetDir, "cabinets");
        setFolder(settings.snapshotDir, "snaps");
    }

    static void setFolder(char*& setting, const char* name) {
        std::free(setting);
        setting = strdup(name);
        std::filesystem::create_directory(name);
    }

    // A picture of one gray level, or of random colours if the level is 0.
    void addArt(const char* path, SIZE size, int level = 0) const {
        PngForm form;
        form.width = size.cx;
        form.height = size.cy;
        form.grain = 8;
        if (level != 0) {
            form.colorType = PNG_COLOR_TYPE_PALETTE;
            form.evenColor = level;
        }
        folder.write(path + std::string(".png"), pngBytes(form));
    }

    // Draws a frame that has this size as read over what an earlier one may have left.
    void drawAsRead(std::int32_t rotation, SIZE read) {
        settings.orientation = rotation;
        const SIZE size = sizeAsRead({0, 0, read.cx, read.cy});
        resizeFrame(size.cx, size.cy);
        constexpr COLORREF leftOver = 0x51A3C7;
        fillRect(dc, {0, 0, width, height}, leftOver);
        draw();
        EXPECT_EQ(extentOf(leftOver).right, 0) << "at " << rotation;
    }

    RECT readExtent(COLORREF color) const { return rectAsRead({0, 0, width, height}, extentOf(color)); }

    std::uint32_t pixelAsRead(int x, int y) const {
        const RECT pixel = turnedRect({0, 0, width, height}, {x, y, x + 1, y + 1});
        return pixelAt(pixel.left, pixel.top);
    }

    std::vector<std::uint32_t> pixelsAsRead(const RECT& part) const {
        std::vector<std::uint32_t> pixels;
        for (int y = part.top; y < part.bottom; ++y) {
            for (int x = part.left; x < part.right; ++x) {
                pixels.push_back(pixelAsRead(x, y));
            }
        }
        return pixels;
    }
};

bool isSimilar(std::uint32_t a, std::uint32_t b) {
    constexpr int tolerance = 16; // of each colour: the filter rounds, and text is placed in halves of pixels
    return std::abs(static_cast<int>(a >> 16) - static_cast<int>(b >> 16)) < tolerance &&
           std::abs(static_cast<int>(a >> 8 & 0xFF) - static_cast<int>(b >> 8 & 0xFF)) < tolerance &&
           std::abs(static_cast<int>(a & 0xFF) - static_cast<int>(b & 0xFF)) < tolerance;
}

TEST_F(TurnedLayoutTest, TurnsTheUprightFrameAsAWhole) {
    for (const char* marquee : {"marquees/g0", "marquees/g1", "marquees/generic"}) {
        addArt(marquee, {400, 100});
    }
    addArt("cabinets/g0", {100, 200});
    addArt("snaps/g0", {320, 240});
    for (const std::int32_t view : views) {
        settings.menuType = view;
        for (const SIZE read : {SIZE{1280, 1024}, SIZE{333, 501}}) {
            const RECT whole{0, 0, read.cx, read.cy};
            drawAsRead(0, read);
            const std::vector<std::uint32_t> upright = pixelsAsRead(whole);
            for (const std::int32_t rotation : rotations) {
                drawAsRead(rotation, read);
                const std::vector<std::uint32_t> turned = pixelsAsRead(whole);
                std::size_t different = 0;
                for (std::size_t pixel = 0; pixel < upright.size(); ++pixel) {
                    different += isSimilar(upright[pixel], turned[pixel]) ? 0 : 1;
                }
                // The ring may be one pixel off.
                EXPECT_LT(different, upright.size() / 100) << view << " at " << rotation << ", " << read.cx;
            }
        }
    }
}

TEST_F(TurnedLayoutTest, KeepsPicturesWholeAndInProportion) {
    const struct {
        std::int32_t view;
        SIZE frame;
        SIZE marquee;
        SIZE snap;
        RECT wantedMarquee; // in the image browser of the second tile
        RECT wantedSnap;
        RECT wantedCabinet;
    } rows[] = {
        {1, {640, 480}, {400, 100}, {320, 240}, {0, 30, 640, 190}, {330, 243, 640, 475}, {640, 480, 0, 0}},
        {1, {640, 480}, {50, 50}, {100, 200}, {210, 0, 430, 220}, {430, 240, 550, 480}, {640, 480, 0, 0}},
        {2,
         {640, 480},
         {400, 100},
         {320, 240},
         {20, 146, 300, 216},
         {330, 243, 640, 475},
         {430, 0, 550, 240}},
        {2,
         {480, 640},
         {100, 100},
         {230, 100},
         {86, 108, 154, 176},
         {250, 430, 480, 530},
         {290, 0, 450, 320}},
    };
    settings.showStatusBar = 0;
    settings.fontColor = paper;
    addArt("cabinets/g0", {100, 200}, 50);
    for (const auto& row : rows) {
        settings.menuType = row.view;
        addArt("marquees/g0", row.marquee, row.view == menuTypeListView ? 40 : 70);
        addArt("marquees/g1", row.marquee, 40);
        addArt("snaps/g0", row.snap, 60);
        for (const std::int32_t rotation : rotations) {
            drawAsRead(rotation, row.frame);
            EXPECT_EQ(readExtent(0x282828), row.wantedMarquee) << rotation;
            EXPECT_EQ(readExtent(0x3C3C3C), row.wantedSnap) << rotation;
            if (row.view == menuTypeImageBrowser) {
                EXPECT_EQ(readExtent(0x323232), row.wantedCabinet) << rotation;
            }
        }
    }
}

TEST_F(TurnedLayoutTest, KeepsTitlesInTheirHalfAndTheRingOffTheBar) {
    title = std::string(200, 'W');
    maker = std::string(200, 'M');
    settings.statusBarForeColor = statusColor;
    for (const SIZE read : {SIZE{640, 480}, SIZE{480, 640}, SIZE{1280, 1024}, SIZE{1080, 1920}}) {
        for (const std::int32_t rotation : rotations) {
            SCOPED_TRACE(::testing::Message() << rotation << ", " << read.cx);
            setGames(25);
            settings.menuType = menuTypeListView;
            selectedIndex = 2;
            drawAsRead(rotation, read);
            const LONG middle = (read.cy - statusBarHeight) / 2;
            const RECT bar = readExtent(barColor);
            EXPECT_EQ(bar.left, 0);
            EXPECT_EQ(bar.right, read.cx / 2);
            EXPECT_EQ(bar.top, middle + 2 * (bar.bottom - bar.top));
            const RECT ink = readExtent(textColor);
            EXPECT_TRUE(contains({textMargin, middle, read.cx / 2 - 2, read.cy - statusBarHeight}, ink))
                << ink;
            EXPECT_GT(ink.right, read.cx / 2 - 60) << "shortened too much";
            EXPECT_EQ(readExtent(statusColor), (RECT{0, read.cy - statusBarHeight, read.cx, read.cy}));

            settings.menuType = menuTypeImageBrowser;
            for (selectedIndex = 0, topIndex = 0; topIndex == 0; ++selectedIndex) {
                draw();
                const RECT ring = readExtent(ringColor);
                const RECT leftHalf{0, 0, read.cx / 2 + 1, read.cy - statusBarHeight};
                EXPECT_TRUE(topIndex > 0 || contains(leftHalf, ring)) << selectedIndex << ": " << ring;
            }
            EXPECT_GE(selectedIndex, 5) << "too few tiles on a page";
        }
    }
}

TEST_F(TurnedLayoutTest, KeepsThePositionInTheStatusBarLegible) {
    settings.statusBarForeColor = textColor;
    for (const auto& [points, position] :
         {std::pair(8, "  Sort: Title - Shot: Screenshots  1/25"), std::pair(18, "  1/25")}) {
        settings.statusBarFontSize = points;
        for (const std::int32_t rotation : rotations) {
            std::vector<std::uint32_t> ends[2];
            for (const std::size_t length : {5, 200}) {
                maker = std::string(length, 'M');
                setGames(25);
                drawAsRead(rotation, {480, 640});
                selectFont(dc, settings.statusBarFontFace, points, rotation, 0);
                const LONG start = 480 - textWidth(dc, position) - textMargin;
                ends[length / 200] = pixelsAsRead({start, 640 - statusBarHeight, 480, 640});
            }
            EXPECT_EQ(ends[0], ends[1]) << points << " at " << rotation;
            const RECT bar{0, 640 - statusBarHeight, 480, 640};
            const std::vector<std::uint32_t> sortedByTitle = pixelsAsRead(bar);
            settings.sortBy = sortByYear;
            draw();
            EXPECT_EQ(pixelsAsRead(bar) == sortedByTitle, points == 18) << "the words of the position";
            settings.sortBy = sortByName;
        }
    }
}

TEST_F(TurnedLayoutTest, PageKeysMoveAsOnAnUprightScreen) {
    for (const std::int32_t rotation : rotations) {
        settings.menuType = menuTypeListView;
        drawAsRead(rotation, {480, 640});
        backDC = dc;
        backBitmap = bitmap;
        const std::int32_t line = textHeight(dc);
        EXPECT_EQ(turnedPageStep(), (2 * 640 - statusBarHeight) / line) << rotation;
        settings.menuType = menuTypeImageBrowser;
        draw();
        const std::int32_t pitch = settings.previewModeHeight + settings.previewModeSpacer;
        EXPECT_EQ(turnedPageStep(), (640 - settings.previewModeSpacer - statusBarHeight) / pitch) << rotation;
    }
    backDC = nullptr;
    backBitmap = nullptr;
}

} // namespace
