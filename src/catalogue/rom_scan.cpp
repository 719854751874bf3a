#include "catalogue/rom_scan.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "state/file_exists.h"

#include <cstdio>

namespace {

std::int32_t zipExists(const char* name) {
    char path[512];
    std::snprintf(path, sizeof path, "%s\\%s.zip", settings.romsDir, name);
    return fileExists(path);
}

} // namespace

void scanRoms() {
    for (std::int32_t game = 0; game < gameCount; ++game) {
        GameRecord& record = *allGames[game];
        record.romPresent = record.name != nullptr ? zipExists(record.name) : 0;
        if (record.romPresent == 0 && record.cloneOf != nullptr) {
            record.romPresent = zipExists(record.cloneOf);
        }
    }
}
