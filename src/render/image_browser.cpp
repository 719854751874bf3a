#include "render/image_browser.h"

#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/drawing.h"
#include "platform/shapes.h"
#include "render/page.h"
#include "render/pictures.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <algorithm>

namespace {

// A tile's height is this share of the frame.
constexpr LONG tilesInUprightFrame = 9;
constexpr LONG tilesInLevelFrame = 5;

// Pixels of the column's run that stay free.
LONG tileReserve(const RECT& area, const BITMAP& bitmap, std::int32_t lineHeight) {
    const RECT frame{0, 0, bitmap.bmWidth, bitmap.bmHeight};
    const LONG strip = sizeAsRead(frame).cy - rectAsRead(frame, area).bottom;
    return settings.orientation == 0 ? strip + lineHeight : strip;
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

RECT tileRect(const RECT& area, std::int32_t position) {
    const LONG width = settings.previewModeWidth;
    const LONG height = settings.previewModeHeight;
    const LONG spacer = tileSpacer();
    const LONG along = position * (height + spacer);
    return turnedRect(area, {spacer, spacer + along, spacer + width, spacer + along + height});
}

// What a page of tiles was drawn from.
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
    bool operator==(const PageSource&) const = default;
};

PageSource presentSource(std::int32_t visibleTiles) {
    return {scratchBitmap,
            viewGeneration,
            topIndex,
            visibleTiles,
            settings.previewModeWidth,
            settings.previewModeHeight,
            tileSpacer(),
            settings.orientation,
            settings.previewBackgroundColor};
}

void drawPage(const RECT& area, std::int32_t visibleTiles) {
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
    bringSelectionToPage(visibleTiles);
    static PageSource drawnFrom{};
    const PageSource source = presentSource(visibleTiles);
    const bool browserDirty = source != drawnFrom;
    if (browserDirty) {
        drawPage(*area, visibleTiles);
        drawnFrom = source;
    }
    BitBlt(dc, area->left, area->top, area->right, area->bottom, scratchDC, area->left, area->top, SRCCOPY);
    drawRing(dc, *area);
    return 1;
}

TurnedPlace turnedPicturePlace(const RECT& area, PictureHalf which) {
    const SIZE size = sizeAsRead(area);
    const LONG quarter = size.cy / 4;
    return {
        area, {size.cx, which == PictureHalf::Upper ? quarter : size.cy - quarter}, {0, 0, size.cx, size.cy}};
}
