// SPDX-License-Identifier: GPL-3.0-or-later
// The view of titles: the marquee of the selected game across the top of the frame, a column of titles with a
// highlight bar in the lower left quarter, and the picture or movie of the game in the lower right quarter.
// Called by drawScreen, which has cleared the frame. Moves topIndex so that the selection is on the page.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Draws the view. On entry, the area is the frame less the height of the status bar at the bottom, whatever
// the rotation; its contents are changed. The marquee and the movie have the same position at all rotations;
// the picture and the titles avoid the status bar. Always returns 1.
int drawListView(HDC dc, RECT* area);

// Draws the highlight bar of the selected line over half of the area. lineHeight is in pixels. Always
// returns 1.
int drawHighlightBar(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight);

// Draws up to `page` titles, starting with topIndex. Always returns 1.
int drawListLines(HDC dc, std::int32_t selected, const RECT* area, std::int32_t lineHeight,
                  std::int32_t page);
