// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the game list while a page shows the progress. Called by the pages of the emulator and of the
// summary.
#pragma once

#include "setup/pages/setup_state.h"

// Loads the list beside the ini file, and makes it before when there is none or when it is for another
// emulator. Sets the notice when that fails or is stopped with the control for back. Returns false when the
// program has been asked to end.
bool provideGameList(SetupState& state);

// Removes a list that was made before anything else was written.
void removeMadeList(const SetupState& state);
