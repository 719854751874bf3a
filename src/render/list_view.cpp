#include "render/list_view.h"

#include "config/settings.h"
#include "platform/drawing.h"
#include "render/attract_movie.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "state/shared_state.h"

#include <algorithm>

namespace {

constexpr std::int32_t textMargin = 6;

// Title lines on the screen: the titles take half of the frame. Never below 1, or the selection could not be
// brought in.
std::int32_t linesOnPage(HDC dc, const RECT& area) {
    return std::max(linesThatFit(dc, area.right - area.left, area.bottom - area.top, 0) / 2, 1);
}

// The place of a line of the page, from the middle of the frame to its edge along the text. The lines fill
// the lower left quarter in reading order; turned by 90 degrees they start at the middle and run towards the
// status bar on the left, and start a little further out when a full page would touch it.
RECT lineRect(const RECT& area, std::int32_t lineHeight, std::int32_t page, std::int32_t line) {
    const LONG start = lineHeight * line;
    const LONG middleX = area.right / 2;
    const LONG middleY = area.bottom / 2;
    switch (settings.orientation) {
    case 90: {
        const LONG first = std::max(middleX, statusBarHeight + page * lineHeight);
        return {first - start - lineHeight, middleY, first - start, area.bottom};
    }
    case 180:
        return {0, area.bottom - start - lineHeight, middleX, area.bottom - start};
    case -90:
        return {start, middleY, start + lineHeight, area.bottom};
    default:
        return {area.left, middleY + start, middleX, middleY + start + lineHeight};
    }
}

// Whole pages, so that a jump lands on the same grid as stepping.
void bringSelectionToPage(std::int32_t page) {
    while (selectedIndex < topIndex) {
        topIndex = std::max(topIndex - page, 0);
    }
    while (selectedIndex > topIndex + page - 1) {
        topIndex = std::min(topIndex + page, visibleCount - page);
    }
}

// How far in from the start of its line a title begins. Where reading runs towards the near edge of the
// screen, a title that is too long for the line begins further out, so that its end is not cut off; but never
// off the screen: a list is read by its beginnings.
LONG titleStart(HDC dc, const RECT& line, const char* title) {
    const bool endsAtEdge = settings.orientation == 90 || settings.orientation == 180;
    const LONG length = isQuarterTurn(settings.orientation) ? line.bottom - line.top : line.right - line.left;
    if (!endsAtEdge) {
        return textMargin;
    }
    const LONG furthest = textMargin - (isQuarterTurn(settings.orientation) ? line.top : line.right);
    return std::max(std::min(textMargin, length - textMargin - textWidth(dc, title)), furthest);
}

void selectListFont(HDC dc, int emphasis) {
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, emphasis);
    SetTextColor(dc, settings.fontColor);
}

// The quarter of the picture ends at the right edge of the frame, where the bar stands at -90.
void moveOffStatusBar(RECT& area) {
    area.left -= statusBarHeight;
    area.right -= statusBarHeight;
}

// The marquee crosses the bar of a turned screen. The font of the titles is selected again.
void restoreStatusBar(HDC dc, LONG width, LONG height) {
    drawStatusBar(dc, selectedIndex, width, height);
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
        const char* title = visibleGames[index]->description;
        drawText(dc, textOrigin(place, titleStart(dc, place, title), 0), title);
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
    if (settings.orientation == -90) {
        moveOffStatusBar(*area);
    }
    closeAttractMovie();
    if (!playAttractMovie(game, area)) {
        drawPreviewPicture(dc, game, area, previewDirectory(), 0);
    }
    if (settings.orientation != 0) {
        restoreStatusBar(dc, width, height);
    }
    drawListLines(dc, selectedIndex, &lines, lineHeight, page);
    return 1;
}
