// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/test_access.h"

#include "platform/display/display.h"
#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/drawing/surface.h"

void setScreenSize(int width, int height) {
    displaySetSize(width, height);
}

ScreenPixels screenPixels() {
    const DisplayPixels screen = displayPixels();
    return {screen.pixels, screen.width, screen.height, screen.stride};
}

bool keepScreenAlive() {
    return displayKeepAlive() == Pace::moving;
}

std::uint32_t* pixelRow(HDC dc, int y) {
    return findDeviceContext(dc)->surface->row(y);
}

std::uint32_t pixelOfColor(COLORREF color) {
    return pixelOf(color);
}

std::size_t drawingObjectCount() {
    return liveObjectCount();
}
