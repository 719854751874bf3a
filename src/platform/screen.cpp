#include "platform/screen.h"

#include "platform/display.h"

int GetSystemMetrics(int index) {
    int width = 0;
    int height = 0;
    displaySize(width, height);
    switch (index) {
    case SM_CXSCREEN:
        return width;
    case SM_CYSCREEN:
        return height;
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
