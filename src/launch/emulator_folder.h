// SPDX-License-Identifier: GPL-3.0-or-later
// The working directory in which the emulator and the list converter are started. Called by game_launch.cpp
// and core/catalogue_loader.cpp.
#pragma once

#include <string>

// Returns the folder of the emulator when the setting Mame.exe has a drive letter or an absolute path. In all
// other cases, and when no such program is found, returns the folder of the front end's own executable. The
// result has no trailing separator.
std::string emulatorFolder();
