// The modal message box. Called by the message window for errors that end the program, and by whatever has no
// window of its own yet. A message that is only shown for a moment is not its business.
#pragma once

#include "platform/types.h"

constexpr UINT MB_OK = 0;
constexpr int IDOK = 1;

// Shows a text in a modal box above everything and returns IDOK when it is left with Enter, Escape, Space, a
// mouse button or a joystick button, or when the program is asked to close. The text also goes to standard
// error. On a display that nobody can see or answer (no real screen) it returns at once. owner and title may
// be null; only MB_OK is served. Messages are not dispatched meanwhile.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT type);
