// SPDX-License-Identifier: GPL-3.0-or-later
// The record of each window and the z-order. Called by all files of this folder and by the media windows. The
// operations that change a window are in the other files.
#pragma once

#include "platform/drawing/surface.h"
#include "platform/window.h"

#include <memory>
#include <string>
#include <vector>

// Width of the frame of a WS_THICKFRAME window on each side, in pixels.
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
    bool invalid = false;   // due a WM_PAINT
    bool eraseDue = false;  // the next paint fills the background first
    bool firstPaint = true; // not painted since it was shown
    bool destroying = false;
};

// Adds a window on top of the z-order, or a child directly above its parent, and returns its handle.
HWND addWindow(std::unique_ptr<Window> window);

// Deletes the record without sending a message.
void removeWindow(HWND handle);

// Moves a window to the top of the z-order, and the windows that it owns above it.
void raiseWindow(HWND handle);

// The record of a handle, or null. Any sent message may destroy any window, so repeat the lookup after
// sending one.
Window* findWindow(HWND handle);

// All windows, from the bottom to the top of the z-order.
const std::vector<HWND>& windowOrder();

// The lowest window without an owner; null when there is none.
HWND mainWindowOfProgram();

bool isChild(const Window& window);

// Width of the frame on each side in pixels.
int frameOf(const Window& window);

// The screen position of the client area of a child's parent; (0, 0) for a popup.
POINT originOf(const Window& window);

// The outer rectangle relative to the client area of a child's parent.
RECT placeInParent(const Window& window);

// Calls the window procedure and returns its result; 0 for a window that does not exist.
LRESULT sendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// Marks the window as invalid; with `erase`, the next paint fills the background first.
void invalidateWindow(Window& window, bool erase);
