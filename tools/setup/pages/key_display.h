// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the codes of the keys and joystick controls that are pressed, for those who write their ini file by
// hand. Called by main.cpp for --keys.
#pragma once

// Returns 0 after ten seconds without a press, which start with the first one, or after two presses of Escape
// one after the other; 1 without a display.
int showPressedKeys();
