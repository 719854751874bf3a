// The main window and its surfaces as every part of the application sees them. Owned by the main window's
// handlers, which alone create and release what the handles name; other readers draw into the surfaces or
// make windows of their own.
#pragma once

#include "platform/types.h"

// Written once by WinMain.
extern HINSTANCE appInstance;
extern HWND mainWindow;

// Written by the main window's handlers, null before: the window's context, the frame buffer and the image
// browser's page of tiles.
extern HDC windowDC;
extern HDC backDC;
extern HBITMAP backBitmap;
extern HDC scratchDC;
extern HBITMAP scratchBitmap;

// 1 while a window of this program has the focus. Written by the focus messages of the main window, the menu
// and the scroller.
extern std::int32_t appActive;
