// Window classes, windows, messages, focus and painting: a small compositor. Platform windows are software
// surfaces with a z-order, composed onto the one display window. Called by the main window, its loop and the
// overlay windows. Sent messages arrive before the sending call returns; posted ones through the queue.
// Everything here belongs to the one thread of the program.
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

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; // milliseconds of the performance counter
    POINT pt;   // always (0, 0): the front end has no pointer
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
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

constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MAXIMIZED = 2;

constexpr UINT PM_NOREMOVE = 0;

constexpr UINT MB_OK = 0;
constexpr int IDOK = 1;

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

// --- Messages ---

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

// --- Painting ---

// Marks the whole window for a paint (a null rect; parts are not kept). With erase the background is filled
// first.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);

// Sends WM_PAINT now when the window is visible and invalid, else does nothing.
BOOL UpdateWindow(HWND window);

// Validates the window, sends WM_ERASEBKGND when an erase is due, and gives a device context for the client
// area, which lives to EndPaint. EndPaint shows the new picture on the display at once.
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// A device context for the client area, held until ReleaseDC (1 on success) or the end of the window. What is
// drawn into it shows with the next paint, message look-up or wait.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);

// --- Message box ---

// Shows a text in a modal box above everything and returns IDOK when it is left with Enter, Escape, Space, a
// mouse button or a joystick button, or when the program is asked to close. The text also goes to standard
// error. On a display that nobody can see or answer (no real screen) it returns at once. owner and title may
// be null; only MB_OK is served. Messages are not dispatched meanwhile.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT type);
