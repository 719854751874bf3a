// SPDX-License-Identifier: GPL-3.0-or-later
// The player's commands. The main loop calls handleTick ten times a second; each call polls every control and
// executes the requested commands in a fixed order. Only the extras keep state between two calls.
#pragma once

#include "platform/types.h"

// Executes one tick; blocks while a game runs or a popup is open. Writes selectedIndex and, in the
// settings, orientation, sortBy and previewPictures.
void handleTick(HWND window);
