// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/list_view.h"

#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/device_contexts.h"
#include "render/attract_movie.h"
#include "render/page.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "render/turns.h"

#include <algorithm>

namespace {

// Number of title lines on a page: the titles take half of the frame. At least 1, as bringSelectionToPage
// requires.
std::int32_t linesOnPage(HDC dc, const RECT& area) {
    return std::max(linesThatFit(dc, area.right - area.left, area.bottom - area.top, 0) / 2, 1);
}

// The rectangle of a full page of lines, as read. The lines are in the lower left quarter of the frame, which
// is a different quarter as read at each rotation. If it is a lower one as read, the lines start in the
// middle of the frame, or higher if the last line would overlap the status bar. If it is an upper one, half
// of the unused pixels are left free at the edge of the screen.
RECT pageAsRead(const RECT& area, std::int32_t lineHeight, std::int32_t page) {
    const SIZE size = sizeAsRead(area);
    const RECT quarter = rectAsRead(area, {area.left, area.bottom / 2, area.right / 2, area.bottom});
    const LONG half = size.cy / 2;
    const LONG height = page * lineHeight;
    const LONG top = quarter.bottom == size.cy ? std::min(std::max(size.cy - height, half), quarter.top)
                                               : std::max(half - height, 0) / 2;
    return {quarter.left, top, quarter.right, top + height};
}

// The frame rectangle of a line, half as long as the frame.
RECT lineRect(const RECT& area, std::int32_t lineHeight, std::int32_t page, std::int32_t line) {
    const RECT read = pageAsRead(area, lineHeight, page);
    const LONG top = read.top + line * lineHeight;
    return turnedRect(area, {read.left, top, read.right, top + lineHeight});
}

// Placement of the picture: in the middle of its quarter of the frame, but clear of the status bar. At 90,
// where it is above the lines as read, it is also moved away from the lines as far as the frame allows.
PicturePlacement picturePlacement(const RECT& area, const RECT& quarter, const RECT& page) {
    const SIZE size = sizeAsRead(area);
    const RECT wanted = rectAsRead(area, quarter);
    const bool abovePage = wanted.bottom < page.bottom;
    return {area,
            {(wanted.left + wanted.right) / 2, (wanted.top + wanted.bottom) / 2},
            {0, 0, size.cx, abovePage ? page.top : size.cy}};
}

void selectListFont(HDC dc, int emphasis) {
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, emphasis);
    SetTextColor(dc, settings.fontColor);
}

// On a turned screen the marquee overlaps the status bar, and beside a high bar a picture of full width
// overlaps the lines. Redraws the bar, clears the page and selects the font of the titles again.
void redrawBarAndClearPage(HDC dc, LONG width, LONG height, const RECT& page) {
    drawStatusBar(dc, selectedIndex, width, height);
    fillRect(dc, page, settings.backgroundColor);
    selectListFont(dc, 0);
    SetBkMode(dc, TRANSPARENT);
}

} // namespace

int drawHighlightBar(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight) {
    const std::int32_t page = linesOnPage(dc, *area);
    fillRect(dc, lineRect(*area, lineHeight, page, selected - topIndex), settings.highlightBackColor);
    return 1;
}

int drawListLines(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight,
                  std::int32_t page) {
    for (std::int32_t line = 0; line < page && topIndex + line < visibleCount; ++line) {
        const std::int32_t index = topIndex + line;
        const bool isSelected = index == selected;
        if (isSelected) {
            selectListFont(dc, 1);
        }
        const RECT target = lineRect(*area, lineHeight, page, line);
        drawText(dc, textOrigin(target, textMargin, 0), visibleGames[index]->description);
        if (isSelected) {
            selectListFont(dc, 0);
        }
    }
    return 1;
}

int drawListView(HDC dc, RECT* area) {
    const LONG width = area->right;
    const LONG height = area->bottom + statusBarHeight;
    const RECT lines = areaWithoutStatusBar(width, height);
    selectListFont(dc, 0);
    SetBkMode(dc, TRANSPARENT);
    const std::int32_t lineHeight = textHeight(dc);
    const std::int32_t page = linesOnPage(dc, lines);
    bringSelectionToPage(page);
    drawHighlightBar(dc, selectedIndex, &lines, lineHeight);
    area->left = area->right / 2;
    area->top = area->bottom / 2;
    const GameRecord* game = visibleGames[selectedIndex];
    drawMarqueeBanner(dc, game, area);
    const RECT pageRect = pageAsRead(lines, lineHeight, page);
    const PicturePlacement placement = picturePlacement(lines, *area, pageRect);
    closeAttractMovie();
    if (!playAttractMovie(game, area)) {
        drawPreviewPicture(dc, game, area, previewDirectory(), 0, placement);
    }
    if (settings.orientation != 0) {
        redrawBarAndClearPage(dc, width, height, turnedRect(lines, pageRect));
        drawHighlightBar(dc, selectedIndex, &lines, lineHeight);
    }
    drawListLines(dc, selectedIndex, &lines, lineHeight, page);
    return 1;
}
