// The status bar: one line with the facts of the selected game on one side, sort order and position on the
// other. Called by drawScreen, first of all that is drawn, since its height is taken off the rest. It writes
// statusBarHeight.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Height in pixels of the bar as last drawn, 0 when it is switched off. Written by drawStatusBar.
extern std::int32_t statusBarHeight;

// Draws the bar for the game at an index of visibleGames, along the edge that is the bottom of the turned
// screen: bottom at 0, left at 90, top at 180, right at -90. Nothing, and a height of 0, when it is switched
// off. Always 1. width and height are those of the frame. The font, colours and OPAQUE mode stay set in the
// device context.
int drawStatusBar(HDC dc, std::int32_t index, std::int32_t width, std::int32_t height);

// A frame of the given size less the strip that a bar of statusBarHeight takes.
RECT areaBesideStatusBar(std::int32_t width, std::int32_t height);
