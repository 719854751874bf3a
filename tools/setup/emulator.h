// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the MAME emulator on this machine and asks it for its version and its folders. Called by the pages
// and the command line of the set-up. Starts no game.
#pragma once

#include <map>
#include <string>
#include <vector>

struct Emulator {
    std::string program; // full path
    std::string version; // for example "0.251 (unknown)"
    // Its settings by name, from its own configuration and from ui.ini: folders are separated by semicolons,
    // and $HOME is expanded.
    std::map<std::string, std::string> options;
};

// Returns the full paths of the programs that are installed under the emulator's usual names on PATH, in
// /usr/games, /usr/local/bin and /usr/local/games, each once.
std::vector<std::string> findEmulators();

// Questions a program. Returns false, with version and options empty, when it is no such emulator: it does
// not start, does not answer within 10 seconds, or answers something else.
bool questionEmulator(const std::string& program, Emulator& emulator);

// Returns the folders that an option of the emulator names, without empty ones.
std::vector<std::string> foldersOf(const Emulator& emulator, const std::string& option);
