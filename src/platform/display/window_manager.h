// Whether somebody else looks after the windows
// and the keyboard focus of the X11 display. Inside
// the platform only: called by the display.
#pragma once

// True when a window manager runs. A cabinet has none, and a window that covers the screen is all that is
// needed there; asking for the full-screen state would only wait for an answer that nobody gives. For the
// start: it opens a connection for the question, since the window is not made yet.
bool windowManagerRuns();

// True when no window on the screen has the keyboard focus and no window manager will assign it: a window
// that had taken it has gone.
bool keyboardFocusIsFree();
