// Which window is active and which has been sent WM_SETFOCUS last. Called where windows are shown, hidden and
// ended, where the display's focus changes, and before messages are looked up. Posts nothing: both messages
// are sent.
#pragma once

#include "platform/window/window_record.h"

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
