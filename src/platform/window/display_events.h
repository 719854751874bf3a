// SPDX-License-Identifier: GPL-3.0-or-later
// Connects the display with the windows: key and joystick events go to the message queue, focus changes to
// the active window, refreshes to the compositor, and end requests to the main window. Called when a window
// is created.
#pragma once

// Installs the display's listener. Only the first call has an effect.
void connectDisplay();
