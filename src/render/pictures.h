// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the art files of a game, or else of its parent, and draws them at the current rotation: the banner of
// the list view, a tile of the image browser, or a preview that keeps its aspect ratio. Called by the views
// and the composition. Nothing is cached between calls. The drawing functions return 1 when the picture was
// drawn or there is no file, and 0 when the file cannot be displayed.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"
#include "render/turns.h"

// Pixels of background between the banner and the middle of the frame.
constexpr LONG bandBelowBanner = 20;

// Fills the frame from the top left corner to the right of the area and down to the band above half its
// bottom.
int drawMarqueeBanner(HDC dc, const GameRecord* game, const RECT* area);

// Fills the rectangle.
int drawMarqueeTile(HDC dc, const GameRecord* game, const RECT* tile);

// Draws the marquee with its proportions, as large as the rectangle allows and centred in it. Fills the rest
// of the rectangle, all of it without a picture, with the background unless that is null.
int drawMarqueeInside(HDC dc, const GameRecord* game, const RECT* place, const COLORREF* background);

// Draws the picture that drawPreviewPicture draws, with the scale that it has in a rectangle of an upright
// frame, and whole inside the given one, which the player sees turned. Fills the rest likewise.
int drawPreviewInside(HDC dc, const GameRecord* game, const RECT* place, const char* directory, int fallback,
                      const COLORREF* background);

// Draws the picture in the directory or, when there is none and fallback is 1, one from another art
// directory. It is scaled to fit the area less 10 pixels of its width. It is placed in the area at rotation
// 0, and as `placement` says on a turned screen.
int drawPreviewPicture(HDC dc, const GameRecord* game, const RECT* area, const char* directory, int fallback,
                       const PicturePlacement& placement);

// Returns the directory of the art that the setting previewPictures selects.
const char* previewDirectory();
