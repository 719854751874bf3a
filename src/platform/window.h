// SPDX-License-Identifier: GPL-3.0-or-later
// Window classes and windows: creation, destruction, position, size and order. Windows are software surfaces
// that are composed onto the one display window. Called by the main window and the overlay windows, from the
// program's one thread only. Messages are sent before the call that causes them returns. Messages are
// declared in messages.h, drawing into a window in painting.h.
#pragma once

#include "platform/types.h"

using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

constexpr UINT CS_VREDRAW = 0x0001;
constexpr UINT CS_HREDRAW = 0x0002;

constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_THICKFRAME = 0x00040000;

constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);

constexpr int SW_HIDE = 0;
constexpr int SW_MAXIMIZE = 3;
constexpr int SW_SHOW = 5;
constexpr int SW_SHOWDEFAULT = 10;

inline const LPCSTR IDI_APPLICATION = reinterpret_cast<LPCSTR>(static_cast<std::uintptr_t>(32512));
inline const LPCSTR IDC_ARROW = reinterpret_cast<LPCSTR>(static_cast<std::uintptr_t>(32512));

// --- Classes ---

// Registers a class under lpszClassName, which is copied. Returns a non-zero atom, or 0 when the name or the
// window procedure is null or the name is taken. The caller keeps the background brush, which must outlive
// the class; with a null brush the window draws its own background.
ATOM RegisterClassA(const WNDCLASSA* windowClass);

// Removes a class. FALSE when there is no such class or a window of it still exists.
BOOL UnregisterClassA(LPCSTR className, HINSTANCE instance);

// Fills the record of a registered class and returns non-zero; FALSE without a change when there is no such
// class. `instance` is only copied into the record.
BOOL GetClassInfoA(HINSTANCE instance, LPCSTR className, WNDCLASSA* windowClass);

// The stock icon and cursor named by IDI_APPLICATION and IDC_ARROW: tokens, never null, owned by the
// platform.
HICON LoadIconA(HINSTANCE instance, LPCSTR name);
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);

// --- Windows ---

// Creates a hidden window and sends it WM_NCCREATE (the result FALSE cancels the creation) and WM_CREATE (the
// result -1 cancels it), both with creationData as lParam. No WM_SIZE is sent. x, y, width and height are the
// outer rectangle in screen pixels; CW_USEDEFAULT counts as 0. The parent of a popup is its owner: the popup
// is above it and is destroyed before it. A WS_CHILD uses the coordinates of its parent's client area, is
// directly above the parent and below the parent's popups, and never gets the focus. WS_THICKFRAME draws a
// frame, so that the client area is smaller than the outer rectangle on each side, and keeps the window on
// the screen: its size is cut to the screen's, and it is moved as little as necessary. Null when the class or
// the parent is unknown, or without a display.
HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID creationData);

// Hides the window, destroys the windows that it owns, sends WM_DESTROY, drops the window's queued messages
// and device contexts, and passes the focus to its owner if it had it. FALSE when there is no such window.
BOOL DestroyWindow(HWND window);

// SW_SHOW and SW_SHOWDEFAULT show the window above all windows but those it owns and give it the focus;
// SW_MAXIMIZE first sets its outer rectangle to the whole screen; SW_HIDE hides it and passes the focus to
// its owner. WM_SIZE is sent before the call returns when the size changes, and when a window that has not
// had one is first shown. A popup that becomes visible is invalid as a whole and is erased at its next paint.
// Returns whether the window was visible before.
BOOL ShowWindow(HWND window, int command);

// Sets the outer rectangle. When the client size changes, WM_SIZE is sent before the call returns (wParam
// SIZE_RESTORED, lParam the client width in the low and the height in the high 16 bits). Negative sizes count
// as 0; a window with WS_THICKFRAME is kept on the screen. With `repaint`, and when a window whose class has
// CS_HREDRAW or CS_VREDRAW changes its size, the whole window becomes invalid.
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

// MoveWindow without a repaint, for children. Their order cannot be changed: insertAfter must be null. No
// flag is supported.
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);

// The client area: left and top are 0. FALSE and no change when there is no such window.
BOOL GetClientRect(HWND window, RECT* rect);

// The outer rectangle in screen pixels. FALSE and no change when there is no such window.
BOOL GetWindowRect(HWND window, RECT* rect);
