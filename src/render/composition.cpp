// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/composition.h"

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/painting.h"
#include "platform/window.h"
#include "render/attract_movie.h"
#include "render/image_browser.h"
#include "render/list_view.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"

void (*frameLayout)(HDC dc, SIZE frame) = nullptr;

namespace {

void drawBrowserView(HDC dc, HBITMAP bitmap, std::int32_t width, std::int32_t height) {
    const RECT area = areaWithoutStatusBar(width, height);
    drawImageBrowser(dc, bitmap, &area);
    // The right half of the frame at every rotation. On a turned screen these rectangles determine the
    // position of a movie but only the scale of a picture. At 0 pictures and movies cover the ends of wide
    // tiles.
    const LONG bottom = height - statusBarHeight;
    const RECT upper{width / 2, 0, width, bottom / 2};
    RECT lower{width / 2, bottom / 2, width, bottom};
    const GameRecord* game = visibleGames[selectedIndex];
    drawPreviewPicture(dc, game, &upper, settings.cabinetDir, 0,
                       turnedPicturePlacement(area, PictureHalf::upper));
    closeAttractMovie();
    if (!playAttractMovie(game, &lower)) {
        drawPreviewPicture(dc, game, &lower, previewDirectory(), 1,
                           turnedPicturePlacement(area, PictureHalf::lower));
    }
    if (settings.orientation != 0) {
        // The tiles and the ring may overlap the bar of a turned screen.
        drawStatusBar(dc, selectedIndex, width, height);
    }
}

} // namespace

int drawScreen(HDC dc, HBITMAP bitmap) {
    BITMAP size{};
    GetObjectA(bitmap, sizeof(size), &size);
    const LONG width = size.bmWidth;
    const LONG height = size.bmHeight;
    if (frameLayout) {
        frameLayout(dc, {width, height});
        return 1;
    }
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

void redraw(HWND window) {
    drawScreen(backDC, backBitmap);
    InvalidateRect(window, nullptr, FALSE);
}
