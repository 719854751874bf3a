// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_state.h"

#include "platform/drawing_objects.h"
#include "platform/window.h"

#include <algorithm>

HINSTANCE appInstance = nullptr;
HWND mainWindow = nullptr;

HDC windowDC = nullptr;
HDC backDC = nullptr;
HBITMAP backBitmap = nullptr;
HDC scratchDC = nullptr;
HBITMAP scratchBitmap = nullptr;

std::int32_t appActive = 0;

LONG frameLeft() {
    RECT client{};
    BITMAP frame{};
    GetClientRect(mainWindow, &client);
    GetObjectA(backBitmap, sizeof(frame), &frame);
    return std::max((client.right - frame.bmWidth) / 2, 0);
}
