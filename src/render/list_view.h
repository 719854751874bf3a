// The view of titles: a column of game titles in the lower left quarter of the frame, with a bar behind the
// selected one. Called by drawScreen, which has cleared the frame. It moves topIndex so that the selection is
// on the page.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Draws the view into the area, which is the frame less the status bar and is changed on the way. Always 1.
int drawListView(HDC dc, RECT* area);

// Fills the bar behind the selected line, over half of the area. Always 1. lineHeight in pixels.
int drawHighlightBar(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight);

// Draws the titles from topIndex on, at most `page` lines. Always 1.
int drawListLines(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight,
                  std::int32_t page);
