// SPDX-License-Identifier: GPL-3.0-or-later
// The view of marquees: one column of tiles along the left edge of the screen as the player sees it, with a
// ring around the selected tile. Called by drawScreen, which then draws the pictures on the other side.
//
// Caches the current page of tiles in scratchDC, so that moving the selection within the page reads no files.
// Moves topIndex by whole pages.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"
#include "render/turns.h"

#include <cstdint>

// Fills the area, which is the frame without the status bar, with the background and the column of tiles. The
// bitmap must be selected into the device context. Always returns 1.
int drawImageBrowser(HDC dc, HBITMAP bitmap, const RECT* area);

// Draws a marquee into a tile; its result is ignored.
using TileDrawing = int (*)(HDC dc, const GameRecord* game, const RECT* tile);

// Draws the column of tiles with its ring into the area after bringing the selection to the page. The size of
// the tiles is in the settings previewModeWidth, previewModeHeight and previewModeSpacer.
void drawTileColumn(HDC dc, const RECT& area, std::int32_t visibleTiles, TileDrawing drawTile);

enum class PictureHalf { upper, lower };

// Placement of a picture on a turned screen: at the edge opposite the column, in the upper or lower half as
// read. A picture larger than the free space covers the ends of some tiles. Not used at rotation 0.
PicturePlacement turnedPicturePlacement(const RECT& area, PictureHalf half);
