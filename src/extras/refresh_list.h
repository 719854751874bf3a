// SPDX-License-Identifier: GPL-3.0-or-later
// The setting RefreshList: keeps the game list in step with the emulator. Called by the catalogue loader
// before it reads the list, when the setting is on. Owns listinfo.stamp, which notes the emulator's program
// that the list was made with.
#pragma once

#include <string>

// Makes the list anew when it is missing, empty or cut off, or when the emulator's program is not the noted
// one. Blocks while emulator and converter run, with a message on the screen. The new list replaces the old
// one in a single step, and only when both programs ended with code 0 and the list is whole; otherwise, and
// when the end of the program is requested meanwhile, the old list and its stamp stay, and the next start
// tries again. Failures are reported on standard error, never in a box. Returns true when
// there is a new list.
bool refreshGameList();

// Notes that the list in the current directory was made with the emulator of this command line, so that the
// next start does not make it anew. Called by the set-up, which makes lists too.
void noteListEmulator(const std::string& commandLine);
