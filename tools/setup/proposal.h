// SPDX-License-Identifier: GPL-3.0-or-later
// Fills in what can be found out without asking: the emulator, its folders, and where the ini file belongs.
// Called by the pages and by the command line of the set-up.
#pragma once

#include "setup/chosen_settings.h"
#include "setup/emulator.h"

#include <string>
#include <vector>

// Returns the path of the ini file in the user's configuration folder.
std::string usualIniPath();

// Returns the command line with which the front end starts the emulator: the program, the ROM folder unless
// the emulator looks there by itself, and no information screens before the game.
std::string emulatorCommand(const Emulator& emulator, const std::string& romFolder);

// Returns the program that such a command line starts; empty when there is none.
std::string programOfCommand(const std::string& command);

// Chooses the best folder of each kind that has none, or one that does not exist. `roots` are those of
// searchRoots.
void proposeFolders(ChosenSettings& chosen, const Emulator& emulator, const std::vector<std::string>& roots);

// Chooses the emulator. Options that the user has added to its former command line are kept when the program
// stays the same.
void chooseEmulator(ChosenSettings& chosen, const Emulator& emulator);

// Chooses a rotation by its word in the ini file, and the layout that suits it. Returns false for an unknown
// word.
bool chooseOrientation(ChosenSettings& chosen, const std::string& word);
