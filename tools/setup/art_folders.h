// SPDX-License-Identifier: GPL-3.0-or-later
// The folders and files that a cabinet uses besides the emulator: where they usually are, and how many of the
// emulator's games they serve. Called by the pages, the command line and the check. Changes nothing.
#pragma once

#include "setup/emulator.h"

#include <array>
#include <span>
#include <string>
#include <vector>

// A folder with one file for each game, or a single file, with the key of the ini file that names it.
struct FolderKind {
    const char* section;
    const char* key;
    const char* title;                     // as shown to the user
    const char* extension;                 // of the files that the front end uses; with the dot
    const char* emulatorOption;            // name of the emulator's option for such a folder
    std::array<const char*, 4> usualNames; // lower case, or null
    bool isFile;                           // the key names a single file with one of the usual names
};

// In the order of the pages. The first is that of the ROMs.
extern const std::array<FolderKind, 10> folderKinds;

// The folders in which the folders of the kinds are looked for: those given, then the usual ones of the user
// and the emulator. Each exists.
std::vector<std::string> searchRoots(const Emulator& emulator, const std::vector<std::string>& given);

// Returns the path of the folder or file that serves the kind best, that is with the most files; empty when
// there is none.
std::string findFolder(const FolderKind& kind, const Emulator& emulator,
                       const std::vector<std::string>& roots);

struct FolderCount {
    bool exists = false;
    int files = 0; // with the extension of the kind
    int games = 0; // of the catalogue whose file, or their parent's, is among them
};

// Counts for the games in the catalogue, which may be empty.
FolderCount countFolder(const FolderKind& kind, const std::string& path);

// The short names of the games that need no ROM file, as far as the catalogue has them.
std::vector<std::string> gamesWithoutRom();

// Returns the folder for ROMs in place of an empty one: an empty folder outside the user's own usually
// belongs to the system, so this is then $HOME/mame/roms, which may not exist yet; otherwise it is the folder
// itself.
std::string ownRomFolder(const std::string& emptyFolder);

// Creates empty zip files for these games in a folder, where there are none. Returns the number of files
// created.
int addPlaceholders(const std::string& folder);
