// Messages: their codes, the queue of the program's one thread, and the default answers. Called by the main
// loop, the loops of the overlay windows and every window procedure. Windows are made in window.h, painted in
// painting.h.
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

// Answers a message as the platform does for a window that does not care: WM_CLOSE destroys the window,
// WM_PAINT validates it, WM_ERASEBKGND fills it with the class's brush, WM_NCCREATE gives TRUE; anything else
// gives 0.
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Looks for the next message without taking it (PM_NOREMOVE is the one flag served): TRUE and the message
// when one waits. The order is posted messages, a quit, input, then WM_PAINT for an invalid window, which
// goes before the repeats of a held key. The repeats that wait are one message, with their number in the low
// word of lParam. While the program is asked to end from outside (a signal, a close by the window system, a
// lost display), WM_CLOSE for the main window goes before all of them; that window has been sent
// WM_ENDSESSION, once and wherever the thread was waiting. The display's events are drained and what has
// changed on the screen is shown. A loop that does nothing but poll is paced like one that calls Sleep(1);
// one that takes messages, reads controls or asks about a window's client area in between is not held up.
// window must be null and both filters 0.
BOOL PeekMessageA(MSG* message, HWND window, UINT filterMin, UINT filterMax, UINT flags);

// Takes the next message, waiting for one when there is none. 0 for WM_QUIT, else 1.
BOOL GetMessageA(MSG* message, HWND window, UINT filterMin, UINT filterMax);

// No window of this layer takes characters: always FALSE, and no message is made.
BOOL TranslateMessage(const MSG* message);

// Calls the window procedure of the message's window and gives its result; 0 when the window is gone.
LRESULT DispatchMessageA(const MSG* message);

// Calls the window procedure at once and gives its result; 0 without effect for a window that does not exist.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Makes WM_QUIT with the given wParam wait behind the posted messages. It is delivered once.
void PostQuitMessage(int exitCode);
