// What the popups over the main window have in common: the class, the surface that a paint copies, the
// messages that every surface answers alike, and the message service of their loops. Used by the message
// window, the menu and the scroller, each of which owns its surface; nothing is kept here.
#pragma once

#include "platform/window.h"

// The device contexts of a popup's client area and of its off-screen bitmap. All null without a window.
struct PopupSurface {
    HDC clientDC = nullptr;
    HDC drawDC = nullptr; // holds the bitmap and the font
    HBITMAP bitmap = nullptr;
};

// Registers a class of popups; 0 on failure.
ATOM registerPopupClass(LPCSTR className, LPCSTR menuName, WNDPROC procedure);

// A hidden popup with a frame, owned by the main window; null on failure.
HWND createPopup(LPCSTR className, int x, int y, int width, int height);

// Answers the messages that concern the surface: WM_CREATE makes the contexts, WM_DESTROY releases
// everything, WM_PAINT copies the bitmap. False, and nothing done, for any other.
bool handleSurfaceMessage(PopupSurface& surface, HWND window, UINT message);

// Answers WM_SETFOCUS and WM_KILLFOCUS for a popup that reads the controls. False for any other message.
bool handleFocusMessage(UINT message);

// Puts a new bitmap of the client area's size in place of the former one.
void renewPopupBitmap(PopupSurface& surface, HWND window);

// Serves one message of any window if one waits. False when the popup's loop is to end: on a quit, which is
// used up, and on the first message after `done`, which is dropped.
bool servePopupMessage(bool done);
