// SPDX-License-Identifier: GPL-3.0-or-later
// Queries whether a window manager manages the windows and the keyboard focus of the X11 display. Called by
// the display only.
#pragma once

// True when a window manager runs. A cabinet has none, and there a window that covers the screen is enough: a
// request for full-screen state would wait for an answer that never comes. Called during the start: it opens
// a separate connection, since the window does not exist yet.
bool windowManagerRuns();

// True when no window has the keyboard focus, because the window that had it has gone, and no window manager
// will reassign it.
bool keyboardFocusIsFree();
