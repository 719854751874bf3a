// Window classes and windows: their making and end, place, size and order. Platform windows are software
// surfaces, composed onto the one display window. Called by the main window and the overlay windows. Sent
// messages arrive before the sending call returns. Everything here belongs to the one thread of the program.
// Messages stand in messages.h, what is drawn into a window in painting.h.
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

// Registers a class under lpszClassName, which is copied. Gives a non-zero atom, or 0 when the name or the
// window procedure is null or the name is taken. The background brush stays the caller's and must live as
// long as the class; a null brush leaves the background to the window.
ATOM RegisterClassA(const WNDCLASSA* windowClass);

// Forgets a class. FALSE when there is no such class or a window of it still lives.
BOOL UnregisterClassA(LPCSTR className, HINSTANCE instance);

// Fills the record of a class that is registered, and gives non-zero; FALSE, and no change, when there is no
// such class. The instance is not looked at.
BOOL GetClassInfoA(HINSTANCE instance, LPCSTR className, WNDCLASSA* windowClass);

// The stock icon and cursor named by IDI_APPLICATION and IDC_ARROW: tokens, never null, owned by the
// platform.
HICON LoadIconA(HINSTANCE instance, LPCSTR name);
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);

// --- Windows ---

// Makes a hidden window and sends it WM_NCCREATE (answer FALSE: no window) and WM_CREATE (answer -1: no
// window), both with creationData in the lParam's place. x, y, width and height are the outer rectangle in
// screen pixels; CW_USEDEFAULT counts as 0, since only popups are made. The parent of a popup is its owner:
// the popup lies above it and ends before it. A WS_CHILD has the coordinates of its parent's client area,
// lies directly above the parent and below its popups, and never has the focus. WS_THICKFRAME has a frame, so
// that the client area is smaller than the outer rectangle on each side, and is held to the screen: never
// larger, and moved as little as it takes to stand on it whole. Gives null for an unknown class. No WM_SIZE
// is sent here.
HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID creationData);

// Hides the window, destroys the windows it owns, sends WM_DESTROY, drops the window's waiting messages and
// device contexts, and gives the focus to its owner when it had it. FALSE when there is no such window.
BOOL DestroyWindow(HWND window);

// SW_SHOW and SW_SHOWDEFAULT show the window on top of its kind and give it the focus; SW_MAXIMIZE first
// makes its outer rectangle the whole screen; SW_HIDE hides it and gives the focus to its owner. WM_SIZE is
// sent before the call returns when the size changes, and at the first show of a window that has had none. A
// window that is shown is wholly invalid and is erased at its next paint. Gives whether the window was
// visible before.
BOOL ShowWindow(HWND window, int command);

// Gives the window a new outer rectangle. WM_SIZE (wParam SIZE_RESTORED, lParam client width in the low and
// height in the high 16 bits) is sent before the call returns, only when the size differs. Negative sizes
// count as 0; a window with WS_THICKFRAME is held to the screen. With repaint, or with a class of CS_HREDRAW
// or CS_VREDRAW whose size changed, the window is invalid afterwards.
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

// MoveWindow without a repaint, for children: their order cannot be changed, so insertAfter must be null, and
// no flag is served.
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);

// The client area: left and top are 0. FALSE and no change when there is no such window.
BOOL GetClientRect(HWND window, RECT* rect);

// The outer rectangle in screen pixels. FALSE and no change when there is no such window.
BOOL GetWindowRect(HWND window, RECT* rect);
