// The commands of the player. Called by the main loop ten times a second: each call polls every control,
// turns the screen to the player who touched them and carries out what they ask, in one fixed order. Nothing
// is kept between two calls.
#pragma once

#include "platform/types.h"

// One tick. Blocks while a game runs. Writes selectedIndex, the rotation, browserDirty, sortBy and
// previewPictures.
void handleTick(HWND window);
