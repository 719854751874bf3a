// The main window and its frame buffer: a bitmap in the shape 4:3 that the commands compose into and a paint
// copies to the screen. Called by the start-up. It owns the device contexts and bitmaps of the shared state
// and writes appActive.
#pragma once

#include "platform/types.h"

// Registers the class, 0 on failure.
ATOM registerMainWindowClass();

// Makes the main window, hidden and without a frame buffer, and its device contexts; null on failure.
HWND createMainWindow();

// The window procedure. WM_SIZE makes the frame buffer anew, black.
LRESULT mainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Releases the frame buffer and the device contexts.
void releaseFrameBuffer();

// Call the cursor's display count down below 0, or up to 0.
void hideMouseCursor();
void showMouseCursor();
