// SPDX-License-Identifier: GPL-3.0-or-later
// The setting Layout=Turned: both views laid out as the player reads them, with the layout that rotation 0
// has in a frame of the turned size, at every rotation. Pictures keep their proportions and titles that are
// too long end in "...". Called by WinMain and the tick; it draws through the hook of render/composition.
#pragma once

#include <cstdint>

// Lets this layout draw every frame from now on if the setting is on. Called once, before the first frame.
void startTurnedLayout();

// Returns the number of games that a page key moves the selection by: what rotation 0 moves by in a frame of
// the turned size. At least 0.
std::int32_t turnedPageStep();
