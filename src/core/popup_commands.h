// The GameInfo and ShowMenu commands: which text is
// shown, and what follows a menu. Called by the tick,
// which stands still until the player has left the popup.
#pragma once

#include "platform/types.h"

// Shows the information of the selected game, or that of its parent where that is visible, or tells that
// there is none. Nothing without a game or with useMameInfoDat at 0.
void showSelectedGameInfo();

// Runs the options menu and then shows what it has changed, with the selection on the same game while that is
// still visible.
void runOptionsMenu(HWND window);
