// The record of each window, and the order in which the windows lie on each other. Called by all files of
// this folder and by the media windows. The rules by which a window changes stand in the files of the
// operations.
#pragma once

#include "platform/drawing/surface.h"
#include "platform/window.h"

#include <memory>
#include <string>
#include <vector>

// Pixels of frame on each side of a window with WS_THICKFRAME.
constexpr int thickFrame = 3;

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

// Adds a window to the top of the order, or a child directly above its parent, and returns its handle.
HWND addWindow(std::unique_ptr<Window> window);

// Ends the record; nobody is sent anything.
void removeWindow(HWND handle);

// Moves a window to the top of the order, with the windows that it owns above it.
void raiseWindow(HWND handle);

// The record behind a handle, or null. A sent message may end any window, so look it up again after each.
Window* findWindow(HWND handle);

// All windows, from the bottom of the z-order to the top.
const std::vector<HWND>& windowOrder();

// The first window without an owner; null when there is none.
HWND mainWindowOfProgram();

bool isChild(const Window& window);

// Pixels of frame on each side.
int frameOf(const Window& window);

// Where the client area of a child's parent begins; (0, 0) for a popup.
POINT originOf(const Window& window);

// The outer rectangle in the coordinates of the owner's client area.
RECT placeInParent(const Window& window);

// Calls the window procedure; 0 for a window that does not exist.
LRESULT sendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// Marks the window for a paint, which with `erase` fills the background first.
void invalidateWindow(Window& window, bool erase);
