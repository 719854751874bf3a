// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the game list of a cabinet: asks the emulator for its games and converts the answer. Called by the
// pages and the command line of the set-up. The front end makes its list by itself (core/catalogue_loader.h);
// here somebody watches, so there is progress, and it can be stopped.
#pragma once

#include <functional>
#include <string>

// Called a few times a second with a line for the user. Returns false to stop.
using ListProgress = std::function<bool(const std::string& text)>;

// Starts the command line of the emulator (as in Mame.exe) with -listxml in a folder and writes listinfo.dat
// there, in one step: after a failure a former list is unchanged. Returns an empty text, or what has failed.
std::string makeGameList(const std::string& emulatorCommand, const std::string& folder,
                         const ListProgress& progress);

// Reads listinfo.dat of a folder into the catalogue. Returns false, with an empty catalogue, when there is
// none or it has no game.
bool loadGameListFrom(const std::string& folder);

// Removes the list of a folder with the note that belongs to it.
void removeGameList(const std::string& folder);
