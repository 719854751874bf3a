// SPDX-License-Identifier: GPL-3.0-or-later
// The page of the sounds and the ambience. Called by pages.cpp; the emulator page looks for the files.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

// Looks for wave files with usual names in the folders named sounds among the roots. With a new ini file,
// those that are found are switched on.
void findSounds(SetupState& state);

PageContent soundsPage(SetupState& state);
