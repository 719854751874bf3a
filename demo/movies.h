// SPDX-License-Identifier: GPL-3.0-or-later
// The attract movies of the demonstration cabinet: a few seconds of the stand-in emulator's scenes with sound
// for some of the games. One file is damaged, as in real collections. Called when the cabinet is created.
#pragma once

#include <string>

// Writes the missing movies into the folder. On a write error returns false with a message in `problem`.
bool layOutMovies(const std::string& folder, std::string& problem);
