// SPDX-License-Identifier: GPL-3.0-or-later
// The GameInfo and ShowMenu commands: choose what the popup shows and apply its result to the list. Called by
// handleTick, and block until the player closes the popup.
#pragma once

#include "platform/types.h"

// Shows the information text of the selected game, or else of its parent if that game is visible, and after
// it the text of the extra History.xml; without any, a message. Does nothing when no game is selected, or
// when useMameInfoDat is 0 and there is no history file.
void showSelectedGameInfo();

// Runs the options menu, then filters and redraws the list. The selection stays on the same game while that
// game remains visible.
void runOptionsMenu(HWND window);
