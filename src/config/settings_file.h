// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the settings from the ini file and saves part of them in it. Called at the start and at the end of
// the program. Keys, kinds and defaults are those of setting_table.cpp.
#pragma once

#include <cstdint>

// Path of the ini file; borrowed from the command line, or a literal. Written once by WinMain.
extern const char* iniPath;

// Fills every field except baseOrientation and favouritesOnly from the file at iniPath. Missing keys use
// their defaults; a missing or unreadable file is not an error. Called once.
void loadSettings();

// Writes the keys that the menu can change, and the name of the selected game. When selectedName is null,
// that key keeps its value in the file. The file is replaced once, or not at all when nothing has changed. A
// failed write leaves it unchanged and is not reported.
void saveSettings(const char* selectedName);

// Returns a number that changes with any value that saveSettings(selectedName) writes. Allocates nothing.
std::uint64_t savedStateHash(const char* selectedName);

// Releases the texts. Called once at the end of the program.
void freeSettings();
