#include "render/composition.h"

#include "config/settings.h"
#include "platform/drawing.h"
#include "render/attract_movie.h"
#include "render/image_browser.h"
#include "render/list_view.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "state/shared_state.h"

namespace {

struct PicturePlaces {
    RECT upper;
    RECT lower;
};

// At 0 the two pictures share the right half of the frame, and cover the ends of wide tiles.
PicturePlaces picturePlaces(const RECT& area) {
    if (settings.orientation != 0) {
        return {turnedPictureArea(area, PictureHalf::Upper), turnedPictureArea(area, PictureHalf::Lower)};
    }
    const LONG middle = area.bottom / 2;
    return {{area.right / 2, 0, area.right, middle}, {area.right / 2, middle, area.right, area.bottom}};
}

void drawBrowserView(HDC dc, HBITMAP bitmap, std::int32_t width, std::int32_t height) {
    const RECT area = areaBesideStatusBar(width, height);
    drawImageBrowser(dc, bitmap, &area);
    PicturePlaces places = picturePlaces(area);
    const GameRecord* game = visibleGames[selectedIndex];
    drawPreviewPicture(dc, game, &places.upper, settings.cabinetDir, 0);
    closeAttractMovie();
    if (!playAttractMovie(game, &places.lower)) {
        drawPreviewPicture(dc, game, &places.lower, previewDirectory(), 1);
    }
    if (settings.orientation != 0) {
        // The last tile's ring may cross the bar of a turned screen.
        drawStatusBar(dc, selectedIndex, width, height);
    }
}

} // namespace

int drawScreen(HDC dc, HBITMAP bitmap) {
    BITMAP size{};
    GetObjectA(bitmap, sizeof(size), &size);
    const LONG width = size.bmWidth;
    const LONG height = size.bmHeight;
    const bool listView = settings.menuType == menuTypeListView;
    fillRect(dc, {0, 0, width, height},
             listView ? settings.backgroundColor : settings.previewBackgroundColor);
    if (visibleCount < 1) {
        return 1;
    }
    drawStatusBar(dc, selectedIndex, width, height);
    if (settings.menuType == menuTypeImageBrowser) {
        drawBrowserView(dc, bitmap, width, height);
    } else {
        RECT area{0, 0, width, height - statusBarHeight};
        drawListView(dc, &area);
    }
    return 1;
}
