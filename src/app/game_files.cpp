// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/game_files.h"

#include "platform/files.h"

#include <algorithm>
#include <string_view>

std::int32_t fileExists(const char* path) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE) {
        return 0;
    }
    FindClose(search);
    return 1;
}

bool staysInFolder(const char* stem) {
    constexpr std::string_view separators = "\\/";
    std::string_view remaining = stem ? stem : "/";
    bool stays = !remaining.starts_with('/') && !remaining.starts_with('\\');
    while (stays && !remaining.empty()) {
        const std::string_view component = remaining.substr(0, remaining.find_first_of(separators));
        stays = component != "..";
        remaining.remove_prefix(std::min(component.size() + 1, remaining.size()));
    }
    return stays;
}
