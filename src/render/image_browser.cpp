#include "render/image_browser.h"

#include "config/settings.h"
#include "platform/drawing.h"
#include "platform/shapes.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "state/shared_state.h"

#include <algorithm>

namespace {

// A tile's height is this share of the frame.
constexpr LONG tilesInUprightFrame = 9;
constexpr LONG tilesInLevelFrame = 5;

constexpr LONG edgeMargin = 10; // between a picture of a quarter-turned screen and the edge of the frame

// Pixels of the column's run that stay free.
LONG tileReserve(const RECT& area, const BITMAP& frame, std::int32_t lineHeight) {
    switch (settings.orientation) {
    case 90:
        return area.left;
    case 180:
        return area.top;
    case -90:
        return frame.bmWidth - area.right;
    default:
        return frame.bmHeight - area.bottom + lineHeight;
    }
}

// Sets the size of the tiles and gives how many a page has. Neither is ever below 1, however small the frame.
std::int32_t layOutPage(HDC dc, HBITMAP bitmap, const RECT& area) {
    const std::int32_t lineHeight = textHeight(dc);
    BITMAP frame{};
    GetObjectA(bitmap, sizeof(frame), &frame);
    const LONG reserve = tileReserve(area, frame, lineHeight);
    const LONG share = frame.bmHeight > frame.bmWidth ? tilesInUprightFrame : tilesInLevelFrame;
    settings.previewModeWidth = area.right / 2;
    settings.previewModeHeight = std::max<LONG>((area.bottom - reserve) / share, 1);
    return std::max(tileRows(area.right, area.bottom, reserve) + 1, 1);
}

// Whole pages. Gives whether topIndex moved.
bool bringSelectionToPage(std::int32_t visibleTiles) {
    const std::int32_t before = topIndex;
    while (selectedIndex < topIndex) {
        topIndex = std::max(topIndex - visibleTiles, 0);
    }
    while (selectedIndex > topIndex + visibleTiles - 1) {
        topIndex = std::min(topIndex + visibleTiles, visibleCount - visibleTiles);
    }
    return topIndex != before;
}

RECT tileRect(const RECT& area, std::int32_t position) {
    const LONG width = settings.previewModeWidth;
    const LONG height = settings.previewModeHeight;
    const LONG spacer = tileSpacer();
    const LONG along = position * (height + spacer);
    RECT tile{};
    switch (settings.orientation) {
    case 90:
        tile = {area.right - spacer - height - along, spacer, 0, 0};
        break;
    case -90:
        tile = {spacer + along, area.bottom - spacer - width, 0, 0};
        break;
    case 180:
        tile = {area.right - spacer - width, area.bottom - spacer - height - along, 0, 0};
        break;
    default:
        tile = {spacer, spacer + along, 0, 0};
        break;
    }
    const bool quarterTurn = isQuarterTurn(settings.orientation);
    tile.right = tile.left + (quarterTurn ? height : width);
    tile.bottom = tile.top + (quarterTurn ? width : height);
    return tile;
}

// The rotation that the page was drawn for. Not everybody who turns the screen says so.
std::int32_t pageOrientation = 0;

void rebuildPage(const RECT& area, std::int32_t visibleTiles) {
    browserDirty = 0;
    pageOrientation = settings.orientation;
    fillRect(scratchDC, area, settings.previewBackgroundColor);
    for (std::int32_t tile = 0; tile < visibleTiles && topIndex + tile < visibleCount; ++tile) {
        const RECT place = tileRect(area, tile);
        drawMarqueeTile(scratchDC, visibleGames[topIndex + tile], &place);
    }
}

// The ring reaches half a spacer beyond the tile on every side.
void drawRing(HDC dc, const RECT& area) {
    const std::int32_t spacer = tileSpacer();
    const std::int32_t pitch = settings.previewModeHeight + spacer;
    std::int32_t left = spacer / 2;
    std::int32_t top = (selectedIndex - topIndex) * pitch + spacer / 2;
    std::int32_t right = left + settings.previewModeWidth + spacer;
    std::int32_t bottom = top + pitch;
    rotatePoint(left, top, area.right, area.bottom);
    rotatePoint(right, bottom, area.right, area.bottom);
    const HPEN pen = CreatePen(PS_SOLID, spacer, settings.previewHighlightBackColor);
    const HGDIOBJ formerPen = SelectObject(dc, pen);
    const LOGBRUSH hollow{BS_HOLLOW, 0, 0};
    const HBRUSH brush = CreateBrushIndirect(&hollow);
    const HGDIOBJ formerBrush = SelectObject(dc, brush);
    RoundRect(dc, left, top, right, bottom, spacer, spacer);
    SelectObject(dc, formerBrush);
    DeleteObject(brush);
    SelectObject(dc, formerPen);
    DeleteObject(pen);
}

} // namespace

int drawImageBrowser(HDC dc, HBITMAP bitmap, const RECT* area) {
    const std::int32_t visibleTiles = layOutPage(dc, bitmap, *area);
    const bool moved = bringSelectionToPage(visibleTiles);
    if (moved || browserDirty || pageOrientation != settings.orientation) {
        rebuildPage(*area, visibleTiles);
    }
    BitBlt(dc, area->left, area->top, area->right, area->bottom, scratchDC, area->left, area->top, SRCCOPY);
    drawRing(dc, *area);
    return 1;
}

RECT turnedPictureArea(const RECT& area, PictureHalf which) {
    const bool upper = which == PictureHalf::Upper;
    const LONG middleX = (area.left + area.right) / 2;
    const LONG middleY = (area.top + area.bottom) / 2;
    const LONG across = isQuarterTurn(settings.orientation) ? area.bottom - area.top : area.right - area.left;
    const LONG column = settings.previewModeWidth + 2 * tileSpacer(); // to the outer edge of the ring
    const LONG free = std::max(across - column, across / 4);
    switch (settings.orientation) {
    case 90:
        return {upper ? middleX : area.left, area.bottom - free, upper ? area.right : middleX,
                area.bottom - edgeMargin};
    case -90:
        return {upper ? area.left : middleX, area.top + edgeMargin, upper ? middleX : area.right,
                area.top + free};
    default:
        return {area.left, upper ? middleY : area.top, area.left + free, upper ? area.bottom : middleY};
    }
}
