// SPDX-License-Identifier: GPL-3.0-or-later
// Messages: their codes, the message queue of the program's one thread, and the default handling. Called by
// the main loop, the loops of the overlay windows and every window procedure. Windows are created in window.h
// and painted in painting.h.
#pragma once

#include "platform/types.h"

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; // milliseconds of the performance counter
    POINT pt;   // always (0, 0): the front end has no pointer
};

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_ENDSESSION = 0x0016;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;

// wParam of WM_SIZE
constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MAXIMIZED = 2;

constexpr UINT PM_NOREMOVE = 0;

// Default handling: WM_CLOSE destroys the window, WM_PAINT validates it, WM_ERASEBKGND fills it with the
// class's brush, WM_NCCREATE returns TRUE; any other message returns 0.
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Copies the next message without removing it (PM_NOREMOVE is the only supported flag). TRUE when there is
// one. `window` must be null and both filters 0.
//
// The order is: a quit, input, WM_PAINT for an invalid window, then the repeats of a held key. Consecutive
// repeats of a key are merged into one message with their number in the low word of lParam. While the program
// is asked to end from outside (a signal, a close by the window system, a lost display), WM_CLOSE for the
// main window precedes all of them; that window is also sent WM_ENDSESSION once, as soon as the request is
// noticed in any wait.
//
// The call handles the display's events and shows what has changed on the screen. A loop that only polls is
// slowed down as if it called Sleep(1); a loop that also takes messages, reads controls or asks for a
// window's client area is not.
BOOL PeekMessageA(MSG* message, HWND window, UINT filterMin, UINT filterMax, UINT flags);

// Removes the next message, waiting until there is one. Returns 0 for WM_QUIT, otherwise 1.
BOOL GetMessageA(MSG* message, HWND window, UINT filterMin, UINT filterMax);

// Does nothing and returns FALSE, because no window takes characters.
BOOL TranslateMessage(const MSG* message);

// Calls the window procedure of the message's window and returns its result; 0 when the window no longer
// exists.
LRESULT DispatchMessageA(const MSG* message);

// Calls the window procedure and returns its result; 0 when there is no such window.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Queues a WM_QUIT with exitCode as wParam. It is delivered once, before input and paints.
void PostQuitMessage(int exitCode);
