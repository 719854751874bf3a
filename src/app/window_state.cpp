#include "app/window_state.h"

HINSTANCE appInstance = nullptr;
HWND mainWindow = nullptr;

HDC windowDC = nullptr;
HDC backDC = nullptr;
HBITMAP backBitmap = nullptr;
HDC scratchDC = nullptr;
HBITMAP scratchBitmap = nullptr;

std::int32_t appActive = 0;
