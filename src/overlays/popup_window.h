// SPDX-License-Identifier: GPL-3.0-or-later
// Common parts of the popups over the main window: window class, drawing surface, and message handling. Used
// by the message window, the menu and the scroller. Each of them owns its PopupSurface; no state is kept
// here.
#pragma once

#include "platform/window.h"

// The device contexts of a popup's client area and of its off-screen bitmap. All null without a window.
struct PopupSurface {
    HDC clientDC = nullptr;
    HDC drawDC = nullptr; // the bitmap and the font are selected into it
    HBITMAP bitmap = nullptr;
};

// The error text when a message window or a menu cannot be created.
constexpr const char* popupFailureText = "Failed to create message window!";

// Registers a window class for a popup. Returns 0 on failure.
ATOM registerPopupClass(LPCSTR className, LPCSTR menuName, WNDPROC procedure);

// Creates a hidden popup with a frame, owned by the main window. Returns null on failure.
HWND createPopup(LPCSTR className, int x, int y, int width, int height);

// Handles the messages that concern the surface: WM_CREATE creates the contexts, WM_DESTROY releases
// everything, WM_PAINT copies the bitmap. Returns false for any other message.
bool handleSurfaceMessage(PopupSurface& surface, HWND window, UINT message);

// Handles WM_SETFOCUS and WM_KILLFOCUS for a popup that reads the controls. Returns false for any other
// message.
bool handleFocusMessage(UINT message);

// Replaces the bitmap with a new one of the client area's size.
void renewPopupBitmap(PopupSurface& surface, HWND window);

// Dispatches one message of any window if one is queued. Returns false when the popup's loop must end: on
// WM_QUIT, which is consumed, and on the first message after `done` is set, which is discarded.
bool servePopupMessage(bool done);
