// The inside of a window, shared by the files that make
// up the window service: windows, messages, focus,
// painting, the compositor. Inside the platform only.
#pragma once

#include "platform/drawing/surface.h"
#include "platform/window.h"

#include <string>
#include <vector>

// Pixels of frame on each side of a window with WS_THICKFRAME.
constexpr int thickFrame = 3;

struct WindowClass {
    std::string name;
    UINT style = 0;
    WNDPROC procedure = nullptr;
    HBRUSH background = nullptr;
};

struct Window {
    HWND handle = nullptr;
    std::string className;
    UINT classStyle = 0;
    WNDPROC procedure = nullptr;
    HBRUSH background = nullptr;
    HWND owner = nullptr;
    DWORD style = 0;
    RECT outer{};
    Surface client;
    std::vector<HDC> contexts; // from GetDC, not yet released
    bool visible = false;
    bool sized = false;     // has been sent a WM_SIZE
    bool invalid = false;   // wants a WM_PAINT
    bool eraseDue = false;  // the next paint fills the background first
    bool firstPaint = true; // shown, and not painted since
    bool destroying = false;
};

// The record behind a handle, or null. A sent message may end any window, so look it up again after each.
Window* findWindow(HWND handle);

// All windows, from the bottom of the z-order to the top.
const std::vector<HWND>& windowOrder();

// The first window without an owner; null when there is none.
HWND mainWindowOfProgram();

// The outer rectangle in the coordinates of the owner's client area.
RECT placeInParent(const Window& window);

// Calls the window procedure; 0 for a window that does not exist.
LRESULT sendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// --- focus.cpp ---

// Makes a window the active one (null: none) and tells the focus.
void activateWindow(HWND handle);

// The window goes out of sight: its owner becomes active if it was.
void deactivateWindow(const Window& window);

// Sends WM_KILLFOCUS and WM_SETFOCUS where the active window or the display's focus has changed since.
void tellFocus();

// The window that has been told that it has the focus; null when none has.
HWND focusWindow();

// The display has gained or lost the focus; told at the next tellFocus.
void setDisplayFocus(bool focused);

// --- messages.cpp ---

void queuePosted(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// A key message for the window with the focus; dropped when there is none.
void queueKey(int code, bool down, bool repeat);

// A message for the window with the focus, or for none, when the joystick's state differs from that of the
// last one; only one waits at a time.
void queueJoystick();

// A message that says nothing, for the window with the focus or for none; only one waits at a time.
void queueWakeUp();

void dropMessagesOf(HWND handle);

// --- compositor.cpp ---

// Has the display call the functions above.
void connectDisplay();

// Something about the windows as a whole changed: place, order, visibility.
void noteScreenChange();

// Has a function called before the screen is refreshed, to put new pictures of movies into their windows. It
// tells whether more of them are to come.
void setPictureSource(bool (*update)());

// Shows what has changed, unless a window that was just shown has still to be painted for the first time.
// True while pictures move.
bool refreshScreen();

// Counts a window as painted and shows the screen as it is, whatever other windows still wait for.
void showWindowNow(HWND handle);
