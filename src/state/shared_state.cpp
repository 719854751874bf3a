#include "state/shared_state.h"

const char* iniPath = nullptr;
HINSTANCE appInstance = nullptr;
HWND mainWindow = nullptr;

HDC windowDC = nullptr;
HDC backDC = nullptr;
HBITMAP backBitmap = nullptr;
HDC scratchDC = nullptr;
HBITMAP scratchBitmap = nullptr;

std::int32_t appActive = 0;

GameRecord** visibleGames = nullptr;
std::int32_t visibleCount = 0;

std::int32_t selectedIndex = 0;
std::int32_t topIndex = 0;
std::int32_t browserDirty = 0;
std::int32_t statusBarHeight = 0;
