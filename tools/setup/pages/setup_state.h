// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages of the set-up share: the choices, what has been found on the machine, and what is shown of
// it. Created by pages.cpp; each page reads it and changes its part.
#pragma once

#include "setup/art_folders.h"
#include "setup/chosen_settings.h"
#include "setup/emulator.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

struct SetupState {
    ChosenSettings chosen;
    std::string iniPath;
    bool hadIni = false; // the choices were loaded from a file

    std::vector<Emulator> emulators; // that are installed, and those that the user has named
    Emulator emulator;               // the chosen one; without a program: none yet

    std::string proposedFor;        // the emulator whose folders have been proposed
    std::string listedFor;          // the emulator of the game list on the disk; empty: not known
    bool madeList = false;          // there was no list before
    std::vector<std::string> roots; // in which folders and sounds are looked for
    std::array<FolderCount, folderKinds.size()> counts;
    std::array<std::string, 5> sounds; // wave files that can be switched on; empty: none found
    std::string ambience;              // likewise

    int controlColumn = 0; // that is marked on the page of the controls
    std::string notice;    // about the last action; shown once

    std::string takeNotice() { return std::exchange(notice, ""); }
};

// The folder of the ini file, in which the front end runs.
std::string cabinetFolder(const SetupState& state);

// Counts the files of all folders again.
void countFolders(SetupState& state);

// Chooses a folder or a file, and adjusts the command line of the emulator when it is that of the ROMs.
void chooseFolder(SetupState& state, std::size_t kind, const std::string& path);

// The line that ends most pages.
constexpr const char* continueLabel = "Continue";
