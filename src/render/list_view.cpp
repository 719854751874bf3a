#include "render/list_view.h"

#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/drawing.h"
#include "render/attract_movie.h"
#include "render/page.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "render/turns.h"

#include <algorithm>

namespace {

// Title lines on the screen: the titles take half of the frame. Never below 1, or the selection could not be
// brought in.
std::int32_t linesOnPage(HDC dc, const RECT& area) {
    return std::max(linesThatFit(dc, area.right - area.left, area.bottom - area.top, 0) / 2, 1);
}

// The lines of a full page, as read in the area. They fill the lower left quarter of the frame, which is
// a different quarter as read at each rotation. In a lower one they start in the middle of the frame, or as
// much earlier as clears the last line of the status bar. In an upper one half of the pixels that no line
// needs stay free at the edge of the screen.
RECT pageAsRead(const RECT& area, std::int32_t lineHeight, std::int32_t page) {
    const SIZE size = sizeAsRead(area);
    const RECT quarter = rectAsRead(area, {area.left, area.bottom / 2, area.right / 2, area.bottom});
    const LONG half = size.cy / 2;
    const LONG height = page * lineHeight;
    const LONG top = quarter.bottom == size.cy ? std::min(std::max(size.cy - height, half), quarter.top)
                                               : std::max(half - height, 0) / 2;
    return {quarter.left, top, quarter.right, top + height};
}

// The place of a line on the frame, half of the frame long.
RECT lineRect(const RECT& area, std::int32_t lineHeight, std::int32_t page, std::int32_t line) {
    const RECT read = pageAsRead(area, lineHeight, page);
    const LONG top = read.top + line * lineHeight;
    return turnedRect(area, {read.left, top, read.right, top + lineHeight});
}

// The place of the picture: in the middle of its quarter of the frame, moved off the status bar, and at 90,
// where it lies above the page as read, off the lines as far as the frame allows.
TurnedPlace picturePlace(const RECT& area, const RECT& quarter, const RECT& page) {
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

// On a turned screen the marquee crosses the status bar, and with a high bar a picture of full width reaches
// into the page. Clears both; the font of the titles is selected again.
void clearBarAndPage(HDC dc, LONG width, LONG height, const RECT& page) {
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
        const RECT place = lineRect(*area, lineHeight, page, line);
        drawText(dc, textOrigin(place, textMargin, 0), visibleGames[index]->description);
        if (isSelected) {
            selectListFont(dc, 0);
        }
    }
    return 1;
}

int drawListView(HDC dc, RECT* area) {
    const LONG width = area->right;
    const LONG height = area->bottom + statusBarHeight;
    const RECT lines = areaBesideStatusBar(width, height);
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
    const TurnedPlace place = picturePlace(lines, *area, pageRect);
    closeAttractMovie();
    if (!playAttractMovie(game, area)) {
        drawPreviewPicture(dc, game, area, previewDirectory(), 0, place);
    }
    if (settings.orientation != 0) {
        clearBarAndPage(dc, width, height, turnedRect(lines, pageRect));
        drawHighlightBar(dc, selectedIndex, &lines, lineHeight);
    }
    drawListLines(dc, selectedIndex, &lines, lineHeight, page);
    return 1;
}
