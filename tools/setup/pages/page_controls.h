// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the set-up itself, the same on each machine: arrow keys or stick, Enter, 1 or button 1,
// Escape, Backspace or button 2, Delete. Called by the loops of page_window. The controls that the user
// chooses for the front end are read in control_capture.
#pragma once

#include <cstdint>

enum class PageKey { none, up, down, left, right, pageUp, pageDown, choose, back, clear };

// Returns a control that has been pressed since the last call. A held direction repeats after 400 ms, ten
// times a second; any other control acts once for each press.
PageKey pollPageKey();

// Discards what has been pressed. Joystick controls that are held act again only after their release.
void flushPageKeys();

// Milliseconds of the performance counter.
std::int64_t pageMilliseconds();
