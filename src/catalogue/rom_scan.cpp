#include "catalogue/rom_scan.h"

#include "app/game_files.h"
#include "catalogue/game_catalogue.h"
#include "catalogue/zip_listing.h"
#include "config/settings.h"
#include "platform/files.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

std::int32_t isInRomsFolder(const std::string& fileName) {
    return fileExists((std::string(settings.romsDir) + "\\" + fileName).c_str());
}

// The zips of the ROM folder. Reading the folder once is several times as fast as asking for each game, and
// on a cold disk it spares one access a game.
ZipListing listZips() {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(gameCount));
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

// Whether the folder holds the zip of a name. A name that is a path or a pattern has to be looked for, and so
// has every name when the folder could not be listed.
std::int32_t zipExists(const ZipListing& zips, const char* name) {
    if (!staysInFolder(name)) {
        return 0;
    }
    if (!zips.names.empty() && std::strpbrk(name, "\\/*?") == nullptr) {
        return hasZip(zips, name) ? 1 : 0;
    }
    char path[512];
    std::snprintf(path, sizeof path, "%s\\%s.zip", settings.romsDir, name);
    return fileExists(path);
}

} // namespace

void scanRoms() {
    const ZipListing zips = listZips();
    for (std::int32_t game = 0; game < gameCount; ++game) {
        GameRecord& record = *allGames[game];
        record.romPresent = zipExists(zips, record.name);
        if (record.romPresent == 0) {
            record.romPresent = zipExists(zips, record.cloneOf);
        }
    }
}
