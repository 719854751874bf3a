// SPDX-License-Identifier: GPL-3.0-or-later
// The modal message box. Called for errors that end the program and for errors before the first window
// exists. Messages that are shown only briefly use the message window instead.
#pragma once

#include "platform/types.h"

constexpr UINT MB_OK = 0;
constexpr int IDOK = 1;

// Shows a text in a modal box above all windows, and writes it to standard error. Returns IDOK once Enter,
// Escape, Space, a mouse button or a joystick button is pressed, or when the program is asked to end. Returns
// immediately once the program has been asked to end, and on a display without a real screen, where the box
// could be neither seen nor closed. owner and title may be null; only MB_OK is supported. No messages are
// dispatched meanwhile.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT type);
