// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/rom_scan.h"

#include "app/game_files.h"
#include "catalogue/game_catalogue.h"
#include "catalogue/zip_listing.h"
#include "config/settings.h"
#include "platform/files.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

std::int32_t isInRomsFolder(const std::string& fileName) {
    return fileExists((std::string(settings.romsDir) + "\\" + fileName).c_str());
}

// Lists the zips of the ROM folder. Listing it once is several times faster than checking each game, which on
// a cold disk also costs one access per game. Returns an empty listing when the folder cannot be read.
ZipListing listZips() {
    std::vector<std::string> names;
    const std::string pattern = std::string(settings.romsDir) + "\\*";
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return {};
    }
    do {
        names.emplace_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return makeZipListing(std::move(names), isInRomsFolder);
}

std::optional<ZipListing> preparedZips; // by prepareRomScan

// Returns 1 when the ROM folder contains the zip of a name, else 0. Names that are paths or patterns are
// checked individually, as are all names when the listing is empty.
std::int32_t zipExists(const ZipListing& zips, const char* name) {
    if (!staysInFolder(name)) {
        return 0;
    }
    if (!zips.places.empty() && !std::strpbrk(name, "\\/*?")) {
        return hasZip(zips, name) ? 1 : 0;
    }
    char path[512];
    std::snprintf(path, sizeof path, "%s\\%s.zip", settings.romsDir, name);
    return fileExists(path);
}

} // namespace

void prepareRomScan() {
    preparedZips = listZips();
}

void discardRomScan() {
    preparedZips.reset();
}

void scanRoms() {
    const ZipListing zips = preparedZips ? std::move(*preparedZips) : listZips();
    preparedZips.reset();
    for (std::int32_t game = 0; game < gameCount; ++game) {
        GameRecord& record = *allGames[game];
        record.romPresent = zipExists(zips, record.name);
        if (record.romPresent == 0) {
            record.romPresent = zipExists(zips, record.cloneOf);
        }
    }
}
