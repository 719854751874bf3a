// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screen.h"

#include "platform/base/end_request.h"
#include "platform/display/display.h"

int GetSystemMetrics(int index) {
    int width = 0;
    int height = 0;
    displaySize(width, height);
    switch (index) {
    case SM_CXSCREEN:
        return width;
    case SM_CYSCREEN:
        return height;
    case SM_CMONITORS:
        return width > 0 && !displayIsLost() ? 1 : 0;
    case SM_SHUTTINGDOWN:
        return endRequested() ? 1 : 0;
    default:
        return 0;
    }
}

int ShowCursor(BOOL show) {
    static int displayCount = 0;
    displayCount += show ? 1 : -1;
    displayShowCursor(displayCount >= 0);
    return displayCount;
}

BOOL SystemParametersInfoA(UINT action, UINT uiParam, LPVOID, UINT) {
    if (action != SPI_SETSCREENSAVEACTIVE) {
        return FALSE;
    }
    displayAllowScreenSaver(uiParam != FALSE);
    return TRUE;
}
