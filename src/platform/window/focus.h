// SPDX-License-Identifier: GPL-3.0-or-later
// The active window and the window that was last sent WM_SETFOCUS. Called when windows are shown, hidden or
// destroyed, when the display's focus changes, and before each message poll. Both focus messages are sent,
// never queued.
#pragma once

#include "platform/window/window_record.h"

// Makes a window the active one (null: none) and sends the focus messages.
void activateWindow(HWND handle);

// Called when a window is hidden: if it was active, its owner becomes active.
void deactivateWindow(const Window& window);

// Sends WM_KILLFOCUS and WM_SETFOCUS if the active window or the display's focus has changed since the last
// call.
void sendFocusChange();

// The window that was last sent WM_SETFOCUS; null when none has the focus.
HWND focusWindow();

// Records that the display has gained or lost the focus; sendFocusChange sends the messages.
void setDisplayFocus(bool focused);
