// Pictures of a game: the search for its art files, and drawing them turned to the rotation in force, as the
// banner of the list view, a tile of the image browser, or a preview that keeps its proportions. Called by
// the views and the composition; holds nothing between calls. Each drawing operation gives 1 when it has
// drawn or there is no file, and 0 when the file cannot be shown.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"
#include "render/turns.h"

// Across the top of the frame down to 20 pixels above the middle of the area.
int drawMarqueeBanner(HDC dc, const GameRecord* game, const RECT* area);

// Into exactly the rectangle.
int drawMarqueeTile(HDC dc, const GameRecord* game, const RECT* tile);

// As large as fits the area less 10 pixels of its width, from the directory; with a fallback of 1 from any
// other that has a file. At 0 it lies in the area, on a turned screen at the place.
int drawPreviewPicture(HDC dc, const GameRecord* game, const RECT* area, const char* directory, int fallback,
                       const TurnedPlace& place);

// The directory of the art that the setting previewPictures names.
const char* previewDirectory();
