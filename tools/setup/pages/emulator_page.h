// SPDX-License-Identifier: GPL-3.0-or-later
// The page on which the emulator is chosen. Called by pages.cpp.
#pragma once

#include "setup/pages/page.h"
#include "setup/pages/setup_state.h"

// Questions the emulators that are installed and the one of the ini file, and chooses the latter, or else the
// first.
void findInstalledEmulators(SetupState& state);

PageContent emulatorPage(SetupState& state);

// Makes the list of the chosen emulator's games if necessary, and proposes the folders. Returns false when
// the program has been asked to end.
bool leaveEmulatorPage(SetupState& state);
