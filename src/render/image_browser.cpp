// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/image_browser.h"

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/shapes.h"
#include "render/page.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <algorithm>

namespace {

// The height of a tile is the free height of the frame divided by this.
constexpr LONG tilesInPortraitFrame = 9;
constexpr LONG tilesInLandscapeFrame = 5;

// Pixels along the column that stay free.
LONG tileReserve(const RECT& area, const BITMAP& bitmap, std::int32_t lineHeight) {
    const RECT frame{0, 0, bitmap.bmWidth, bitmap.bmHeight};
    const LONG strip = sizeAsRead(frame).cy - rectAsRead(frame, area).bottom;
    return settings.orientation == 0 ? strip + lineHeight : strip;
}

// Sets the size of the tiles and returns their number on a page. The height and the number are at least 1,
// however small the frame.
std::int32_t layOutPage(HDC dc, HBITMAP bitmap, const RECT& area) {
    const std::int32_t lineHeight = textHeight(dc);
    BITMAP frame{};
    GetObjectA(bitmap, sizeof(frame), &frame);
    const LONG reserve = tileReserve(area, frame, lineHeight);
    const LONG share = frame.bmHeight > frame.bmWidth ? tilesInPortraitFrame : tilesInLandscapeFrame;
    settings.previewModeWidth = area.right / 2;
    settings.previewModeHeight = std::max<LONG>((area.bottom - reserve) / share, 1);
    return std::max(tileRows(area.right, area.bottom, reserve) + 1, 1);
}

RECT tileRect(const RECT& area, std::int32_t position) {
    const LONG width = settings.previewModeWidth;
    const LONG height = settings.previewModeHeight;
    const LONG spacer = tileSpacer();
    const LONG along = position * (height + spacer);
    return turnedRect(area, {spacer, spacer + along, spacer + width, spacer + along + height});
}

// Everything that the cached page of tiles depends on; the page is redrawn when any of it changes.
struct PageSource {
    HBITMAP surface;
    std::uint32_t viewGeneration;
    std::int32_t topIndex;
    std::int32_t visibleTiles;
    std::int32_t tileWidth;
    std::int32_t tileHeight;
    std::int32_t spacer;
    std::int32_t orientation;
    COLORREF background;
    TileDrawing drawTile;
    bool operator==(const PageSource&) const = default;
};

PageSource currentSource(std::int32_t visibleTiles, TileDrawing drawTile) {
    return {scratchBitmap,
            viewGeneration,
            topIndex,
            visibleTiles,
            settings.previewModeWidth,
            settings.previewModeHeight,
            tileSpacer(),
            settings.orientation,
            settings.previewBackgroundColor,
            drawTile};
}

void drawPage(const RECT& area, std::int32_t visibleTiles, TileDrawing drawTile) {
    fillRect(scratchDC, area, settings.previewBackgroundColor);
    for (std::int32_t tile = 0; tile < visibleTiles && topIndex + tile < visibleCount; ++tile) {
        const RECT tileArea = tileRect(area, tile);
        drawTile(scratchDC, visibleGames[topIndex + tile], &tileArea);
    }
}

// The middle of the ring's stroke is half a spacer outside the tile.
void drawRing(HDC dc, const RECT& area) {
    const std::int32_t spacer = tileSpacer();
    const std::int32_t pitch = settings.previewModeHeight + spacer;
    const std::int32_t left = spacer / 2;
    const std::int32_t top = (selectedIndex - topIndex) * pitch + spacer / 2;
    const RECT ring = turnedRect(area, {left, top, left + settings.previewModeWidth + spacer, top + pitch});
    const HPEN pen = CreatePen(PS_SOLID, spacer, settings.previewHighlightBackColor);
    const HGDIOBJ previousPen = SelectObject(dc, pen);
    const LOGBRUSH hollow{BS_HOLLOW, 0, 0};
    const HBRUSH brush = CreateBrushIndirect(&hollow);
    const HGDIOBJ previousBrush = SelectObject(dc, brush);
    RoundRect(dc, ring.left, ring.top, ring.right, ring.bottom, spacer, spacer);
    SelectObject(dc, previousBrush);
    DeleteObject(brush);
    SelectObject(dc, previousPen);
    DeleteObject(pen);
}

} // namespace

void drawTileColumn(HDC dc, const RECT& area, std::int32_t visibleTiles, TileDrawing drawTile) {
    bringSelectionToPage(visibleTiles);
    static PageSource drawnFrom{};
    const PageSource source = currentSource(visibleTiles, drawTile);
    const bool browserDirty = source != drawnFrom;
    if (browserDirty) {
        drawPage(area, visibleTiles, drawTile);
        drawnFrom = source;
    }
    BitBlt(dc, area.left, area.top, area.right, area.bottom, scratchDC, area.left, area.top, SRCCOPY);
    drawRing(dc, area);
}

int drawImageBrowser(HDC dc, HBITMAP bitmap, const RECT* area) {
    drawTileColumn(dc, *area, layOutPage(dc, bitmap, *area), drawMarqueeTile);
    return 1;
}

PicturePlacement turnedPicturePlacement(const RECT& area, PictureHalf half) {
    const SIZE size = sizeAsRead(area);
    const LONG quarter = size.cy / 4;
    return {
        area, {size.cx, half == PictureHalf::upper ? quarter : size.cy - quarter}, {0, 0, size.cx, size.cy}};
}
