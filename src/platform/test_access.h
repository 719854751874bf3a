// What tests and benchmarks set and look at besides the operations. Called by nobody else: the application
// does without.
#pragma once

#include "platform/types.h"

// Fixes the size of the screen on drivers that have none of their own (dummy, offscreen), before the first
// window is made or later. Pixels.
void setScreenSize(int width, int height);

// The screen as the windows were last drawn there, valid until the next operation. No pixels without a
// display.
struct ScreenPixels {
    const std::uint32_t* pixels; // 0x00RRGGBB
    int width;
    int height;
    int stride; // pixels from one row to the next
};
ScreenPixels screenPixels();

// Handles the display's events and shows what has changed, as a wait does. True while pictures move.
bool keepScreenAlive();

// The pixels of row `y` of what a device context draws into, 0x00RRGGBB. The context and the row must exist.
std::uint32_t* pixelRow(HDC dc, int y);

// 0x00BBGGRR to 0x00RRGGBB.
std::uint32_t pixelOfColor(COLORREF color);

// The drawing objects that live, those of the stock included. Constant after balanced use.
std::size_t drawingObjectCount();
