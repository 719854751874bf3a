// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/turned_layout.h"

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "extras/empty_frame.h"
#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "render/attract_movie.h"
#include "render/composition.h"
#include "render/image_browser.h"
#include "render/page.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "render/turns.h"

#include <algorithm>

namespace {

// The height of a tile is a share of the free height of the screen as read.
constexpr LONG tilesInPortraitFrame = 9;
constexpr LONG tilesInLandscapeFrame = 5;

void selectListFont(HDC dc, int emphasis) {
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, emphasis);
}

// A half of the right half of the area as read.
enum class Half { upper, lower };

RECT rightQuarter(const RECT& area, Half half) {
    const SIZE size = sizeAsRead(area);
    const LONG middle = size.cy / 2;
    return turnedRect(area, half == Half::upper ? RECT{size.cx / 2, 0, size.cx, middle}
                                                : RECT{size.cx / 2, middle, size.cx, size.cy});
}

void drawMovieOrPicture(HDC dc, const RECT& place, int fallback, const COLORREF* background) {
    const GameRecord* game = visibleGames[selectedIndex];
    closeAttractMovie();
    if (!playTurnedMovie(game, place)) {
        drawPreviewInside(dc, game, &place, previewDirectory(), fallback, background);
    } else if (background) {
        fillRect(dc, place, *background);
    }
}

void drawTitle(HDC dc, const RECT& line, std::int32_t index) {
    const bool isSelected = index == selectedIndex;
    if (isSelected) {
        fillRect(dc, line, settings.highlightBackColor);
        selectListFont(dc, 1);
    }
    const std::string text =
        shortenedText(dc, visibleGames[index]->description, sizeAsRead(line).cx - 2 * textMargin);
    drawText(dc, textOrigin(line, textMargin, 0), text.c_str());
    if (isSelected) {
        selectListFont(dc, 0);
    }
}

// Leaves the font of the titles selected, which turnedPageStep measures.
void drawList(HDC dc, const RECT& area) {
    const SIZE size = sizeAsRead(area);
    const LONG middle = size.cy / 2;
    selectListFont(dc, 0);
    SetTextColor(dc, settings.fontColor);
    SetBkMode(dc, TRANSPARENT);
    const std::int32_t lineHeight = textHeight(dc);
    const std::int32_t page =
        std::max(linesThatFit(dc, area.right - area.left, area.bottom - area.top, 0) / 2, 1);
    bringSelectionToPage(page);
    const LONG bottom = middle - bandBelowBanner;
    const COLORREF background = settings.backgroundColor;
    const RECT banner = turnedRect(area, {0, 0, size.cx, bottom});
    drawMarqueeInside(dc, visibleGames[selectedIndex], &banner, &background);
    drawMovieOrPicture(dc, rightQuarter(area, Half::lower), 0, &background);
    fillRect(dc, turnedRect(area, {0, bottom, size.cx, middle}), background);
    fillRect(dc, turnedRect(area, {0, middle, size.cx / 2, size.cy}), background);
    for (std::int32_t line = 0; line < page && topIndex + line < visibleCount; ++line) {
        const LONG top = middle + line * lineHeight;
        drawTitle(dc, turnedRect(area, {0, top, size.cx / 2, top + lineHeight}), topIndex + line);
    }
}

// Sets the size of the tiles and returns their number on a page. Height and number are those of rotation 0,
// but the tiles are lower where the last one would reach below the area, and narrow enough to leave the right
// half to the pictures. All results are at least 1.
std::int32_t layOutTiles(const RECT& area) {
    const SIZE size = sizeAsRead(area);
    const LONG spacer = tileSpacer();
    const LONG reserve = 2 * statusBarHeight;
    const bool portrait = size.cy + statusBarHeight > size.cx;
    const LONG height = (size.cy - reserve) / (portrait ? tilesInPortraitFrame : tilesInLandscapeFrame);
    settings.previewModeWidth = std::max(size.cx / 2 - 2 * spacer, 1);
    settings.previewModeHeight = std::max(height, 1);
    const std::int32_t tiles =
        std::max(tileRows(area.right - area.left, area.bottom - area.top, reserve) + 1, 1);
    // The stroke of the ring may reach a pixel further than a spacer.
    settings.previewModeHeight =
        std::clamp((size.cy - spacer - 1) / tiles - spacer, 1, settings.previewModeHeight);
    return tiles;
}

void drawBrowser(HDC dc, const RECT& area) {
    drawTileColumn(dc, area, layOutTiles(area), [](HDC page, const GameRecord* game, const RECT* tile) {
        return drawMarqueeInside(page, game, tile, nullptr);
    });
    const RECT upper = rightQuarter(area, Half::upper);
    drawPreviewInside(dc, visibleGames[selectedIndex], &upper, settings.cabinetDir, 0, nullptr);
    drawMovieOrPicture(dc, rightQuarter(area, Half::lower), 1, nullptr);
}

void drawFrame(HDC dc, SIZE frame) {
    if (visibleCount < 1) {
        closeAttractMovie();
        drawEmptyFrame(dc, frame);
        return;
    }
    drawStatusBar(dc, selectedIndex, frame.cx, frame.cy);
    const RECT area = areaWithoutStatusBar(frame.cx, frame.cy);
    if (settings.menuType == menuTypeImageBrowser) {
        drawBrowser(dc, area);
    } else {
        drawList(dc, area);
    }
}

} // namespace

void startTurnedLayout() {
    frameLayout = settings.layout == layoutTurned ? drawFrame : nullptr;
}

std::int32_t turnedPageStep() {
    BITMAP frame{};
    GetObjectA(backBitmap, sizeof(frame), &frame);
    const std::int32_t step =
        settings.menuType == menuTypeListView
            ? linesThatFit(backDC, 2 * frame.bmWidth, 2 * frame.bmHeight, statusBarHeight)
            : tileRows(frame.bmWidth, frame.bmHeight, statusBarHeight);
    return std::max(step, 0);
}
