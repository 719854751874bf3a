// SPDX-License-Identifier: GPL-3.0-or-later
// Access for tests and benchmarks to what the operations do not expose: the screen size, the composed screen
// and the pixels of device contexts. The application does not use it.
#pragma once

#include "platform/types.h"

// Sets the size of the screen in pixels for SDL drivers that have none (dummy, offscreen), before or after
// the first window is created.
void setScreenSize(int width, int height);

// The screen as last composed, valid until the next platform call. `pixels` is null without a display.
struct ScreenPixels {
    const std::uint32_t* pixels; // 0x00RRGGBB
    int width;
    int height;
    int stride; // pixels from one row to the next
};
ScreenPixels screenPixels();

// Handles the display's events and shows what has changed, as waits do. True while a movie plays.
bool keepScreenAlive();

// Row `y` of the surface that a device context draws into, as 0x00RRGGBB. The context and the row must exist.
std::uint32_t* pixelRow(HDC dc, int y);

// Converts 0x00BBGGRR to 0x00RRGGBB.
std::uint32_t pixelOfColor(COLORREF color);

// The number of existing drawing objects, including the stock objects.
std::size_t drawingObjectCount();
