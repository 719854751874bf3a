// SPDX-License-Identifier: GPL-3.0-or-later
// Media windows as the application uses them: without controls, playing in an endless loop. Used for the
// ambience track and the attract movies.
#pragma once

#include "platform/types.h"

// Creates a child of the main window without controls, menu or error boxes, and opens the file in it. Returns
// null when there is no main window. The caller destroys the window.
HWND openMediaWindow(const char* path);

// Starts endless playback. Returns 1, or 0 when the file cannot be played.
int playRepeatedly(HWND window);
