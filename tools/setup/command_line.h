// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of kestravox-setup. Used by its main program only.
#pragma once

#include <span>
#include <string>

enum class SetupTask { pages, write, check, keys, rebuild, help, version };

struct SetupOptions {
    SetupTask task = SetupTask::pages;
    std::string emulator;    // path of the program; empty: the one that is found
    std::string roms;        // folder; empty: the one that is found
    std::string art;         // a folder with the folders of pictures and movies in it; empty: the usual ones
    std::string orientation; // word of the ini file; empty: unchanged
    std::string ini;         // the file to write or check; empty: the usual one
};

// Returns an empty text, or what is wrong with the arguments (without the program's name).
std::string parseOptions(std::span<char* const> arguments, SetupOptions& options);

// Returns the text of --help.
std::string helpText();
