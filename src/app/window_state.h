// SPDX-License-Identifier: GPL-3.0-or-later
// Handles of the main window and its drawing surfaces, shared by the whole application. core/main_window.cpp
// creates and releases them; other modules draw into the surfaces or create windows owned by the main window.
#pragma once

#include "platform/types.h"

// Written once by WinMain.
extern HINSTANCE appInstance;
extern HWND mainWindow;

// Null until the main window is created: the window's context, the frame buffer, and the image browser's page
// of tiles. Written by core/main_window.cpp.
extern HDC windowDC;
extern HDC backDC;
extern HBITMAP backBitmap;
extern HDC scratchDC;
extern HBITMAP scratchBitmap;

// Pixels from the left edge of the main window's client area to the frame, which is centred on a screen wider
// than 4:3.
LONG frameLeft();

// 1 while a window of this program has the focus, else 0. Written by the WM_SETFOCUS and WM_KILLFOCUS
// handlers of the main window, the menu and the scroller.
extern std::int32_t appActive;
