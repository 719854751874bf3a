// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/status_bar.h"

#include "render/primitives.h"
#include "support/frame_test.h"

namespace {

class StatusBarTest : public FrameTest {
protected:
    std::vector<std::uint32_t> pixelsOfTheBar() const {
        std::vector<std::uint32_t> pixels;
        for (int y = height - statusBarHeight; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                pixels.push_back(pixelAt(x, y));
            }
        }
        return pixels;
    }
};

TEST_F(StatusBarTest, ShowsTheGameAndThePosition) {
    char vector[] = "vector";
    char capital[] = "Raster";
    const struct {
        std::int32_t menuType;
        std::int32_t sortBy;
        std::int32_t pictures;
        char* screen;
        std::uint16_t orientation;
        const char* left;
        const char* right;
    } rows[] = {
        {menuTypeListView, sortByName, previewCabinets, raster, orientationHorizontal,
         "  \2511985 Maker - Raster, Horizontal", "  Sort: Title - Shot: Cabinets  3/25"},
        {menuTypeListView, sortByYear, previewScreenShots, vector, orientationVertical,
         "  \2511985 Maker - Vector, Vertical", "  Sort: Year - Shot: Screenshots  3/25"},
        {menuTypeListView, sortByManufacturer, previewFlyers, capital, orientationNotStated,
         "  \2511985 Maker - Vector, Horizontal", "  Sort: Manufacturer - Shot: Flyers  3/25"},
        {menuTypeListView, sortByName, previewTitles, raster, orientationHorizontal,
         "  \2511985 Maker - Raster, Horizontal", "  Sort: Title - Shot: Titles  3/25"},
        {menuTypeListView, sortByName, previewMarquees, raster, orientationHorizontal,
         "  \2511985 Maker - Raster, Horizontal", "  Sort: Title - Shot: Marquees  3/25"},
        {menuTypeImageBrowser, sortByYear, previewTitles, raster, orientationHorizontal,
         "  Title of a game / \2511985 Maker - Raster, Horizontal", "  Sort: Year  3/25"},
        {menuTypeListView, sortByYear, previewTitles, raster, orientationHorizontal,
         "*   \2511985 Maker - Raster, Horizontal", "  Sort: Year - Shot: Titles  3/25"},
        {menuTypeImageBrowser, sortByName, previewTitles, raster, orientationHorizontal,
         "*   Title of a game / \2511985 Maker - Raster, Horizontal", "  Sort: Title  3/25"},
    };
    for (const auto& row : rows) {
        settings.menuType = row.menuType;
        settings.sortBy = row.sortBy;
        settings.previewPictures = row.pictures;
        video.screen = row.screen;
        video.orientation = row.orientation;
        records[2].isFavourite = *row.left == '*' ? 1 : 0;
        drawStatusBar(dc, 2, width, height);
        const std::vector<std::uint32_t> drawn = pixelsOfTheBar();
        const LONG top = height - statusBarHeight;
        selectFont(dc, settings.statusBarFontFace, settings.statusBarFontSize, 0, 0);
        fillRect(dc, {0, top, width, height}, statusColor);
        drawText(dc, {6, top}, row.left);
        drawText(dc, {width - textWidth(dc, row.right) - 6, top}, row.right);
        EXPECT_TRUE(drawn == pixelsOfTheBar()) << row.right;
    }
}

} // namespace
