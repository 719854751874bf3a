// The view of titles: the selected game's marquee across the top of the frame, a column of titles in the
// lower left quarter with a bar behind the selected one, and the game's picture in the lower right. Called by
// drawScreen, which has cleared the frame. It moves topIndex so that the selection is on the page.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Draws the view into the area, which is changed on the way: the frame less the height of the status bar at
// its foot, at every rotation. The marquee and a movie keep their places when the screen is turned; a picture
// and the titles keep clear of the bar. Always 1.
int drawListView(HDC dc, RECT* area);

// Fills the bar behind the selected line, over half of the area. Always 1. lineHeight in pixels.
int drawHighlightBar(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight);

// Draws the titles from topIndex on, at most `page` lines. Always 1.
int drawListLines(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight,
                  std::int32_t page);
