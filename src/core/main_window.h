// SPDX-License-Identifier: GPL-3.0-or-later
// The main window and its frame buffer: a bitmap with an aspect ratio of at most 4:3 that the commands draw
// into and WM_PAINT copies to the screen. Used by WinMain. Creates and releases the device contexts and
// bitmaps declared in app/window_state.h, and writes appActive.
#pragma once

#include "platform/types.h"

// Registers the window class. Returns 0 on failure.
ATOM registerMainWindowClass();

// Creates the main window, hidden, and its device contexts. The frame buffer is created by the first WM_SIZE.
// Returns null on failure.
HWND createMainWindow();

// The window procedure. WM_SIZE replaces the frame buffer with a black one.
LRESULT mainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Releases the frame buffer and the device contexts.
void releaseFrameBuffer();

// Change the cursor's display count until the cursor is hidden or shown.
void hideMouseCursor();
void showMouseCursor();
