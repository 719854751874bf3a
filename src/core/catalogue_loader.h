// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the game list into the catalogue at program start, then loads the game information file. When the
// list file is missing, the emulator and the converter are run first to create it. An existing list is never
// regenerated, whatever its age, unless the extra RefreshList is on, which then makes missing lists too.
#pragma once

#include <cstdint>

// Starts reading an existing list in a thread, so that it is in memory when the display is open, which takes
// as long. Called first by WinMain. Until loadGameList, nobody may use the catalogue.
void startReadingGameList();

// Returns 1 when a list was read, even one without games. Returns 0, after showing a message, when there is
// no list and none could be created. A reading that was started before is waited for instead, and the ROM
// folder is listed meanwhile.
std::int32_t loadGameList();
