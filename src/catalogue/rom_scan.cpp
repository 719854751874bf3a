#include "catalogue/rom_scan.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "platform/files.h"
#include "state/file_exists.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <unordered_set>

namespace {

using FileNames = std::unordered_set<std::string>;

// The zips of the ROM folder. Reading the folder once is several times as fast as asking for each game, and
// on a cold disk it spares one access a game.
FileNames listZips() {
    FileNames names;
    names.reserve(static_cast<std::size_t>(gameCount));
    const std::string pattern = std::string(settings.romsDir) + "\\*.zip";
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        names.emplace(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

// Whether the folder holds the zip of a name. A name that is a path or a pattern has to be looked for, and so
// has every name when the folder could not be listed.
std::int32_t zipExists(const FileNames& zips, const char* name) {
    char path[512];
    if (!zips.empty() && std::strpbrk(name, "\\/*?") == nullptr) {
        std::snprintf(path, sizeof path, "%s.zip", name);
        return zips.count(path) != 0 ? 1 : 0;
    }
    std::snprintf(path, sizeof path, "%s\\%s.zip", settings.romsDir, name);
    return fileExists(path);
}

} // namespace

void scanRoms() {
    const FileNames zips = listZips();
    for (std::int32_t game = 0; game < gameCount; ++game) {
        GameRecord& record = *allGames[game];
        record.romPresent = record.name != nullptr ? zipExists(zips, record.name) : 0;
        if (record.romPresent == 0 && record.cloneOf != nullptr) {
            record.romPresent = zipExists(zips, record.cloneOf);
        }
    }
}
