// Connects the display with the windows: keys and the joystick with the message queue, the keyboard focus
// with the active window, refreshes with the compositor, and a request to end with the main window. Called
// when a window is made.
#pragma once

// Has the display report here. Only the first call has an effect.
void connectDisplay();
