// What the popups over the main window have in common: the class, an off-screen bitmap that a paint copies,
// and the message service of their loops. Called by the message window, the menu and the scroller, which own
// all of it; nothing is kept here.
#pragma once

#include "platform/window.h"

#include <cstdint>

// Registers a class of popups; 0 on failure.
ATOM registerPopupClass(LPCSTR className, LPCSTR menuName, WNDPROC procedure);

// A hidden popup with a frame, owned by the main window; null on failure.
HWND createPopup(LPCSTR className, int x, int y, int width, int height);

// The device contexts of a popup's client area and of its off-screen bitmap, and their release, which leaves
// all three null.
void createPopupContexts(HWND window, HDC& clientDC, HDC& drawDC);
void releasePopupContexts(HWND window, HDC& clientDC, HDC& drawDC, HBITMAP& bitmap);

// Puts a new bitmap of the client area's size in place of the former one, selected into drawDC.
void renewPopupBitmap(HWND window, HDC clientDC, HDC drawDC, HBITMAP& bitmap);

// Answers a paint by a copy of the bitmap. False when there is none.
bool paintPopup(HWND window, HDC clientDC, HDC drawDC);

// Counts of the performance counter between two of ten ticks a second; 0, after a message box, when the
// machine has no counter.
std::int64_t popupTickPeriod();

// The performance counter.
std::int64_t popupClock();

// Serves one message of any window if one waits. False when the popup's loop is to end: on a quit, which is
// used up, and on the first message after `done`, which is dropped.
bool servePopupMessage(bool done);
