// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch/emulator_folder.h"

#include "config/settings.h"
#include "platform/module.h"
#include "platform/program_search.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view separators = "\\/";

std::string frontEndPath() {
    std::string path(255, '\0');
    for (;;) {
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

bool hasDrive(std::string_view commandLine) {
    return commandLine.size() > 1 && commandLine[1] == ':';
}

// The program may be quoted.
bool isAbsolute(std::string_view commandLine) {
    const std::size_t start = commandLine.find_first_not_of(" \t\"");
    return start != std::string_view::npos && separators.find(commandLine[start]) != std::string_view::npos;
}

// Returns the parent folder without a trailing separator, except for the root; empty when the path has no
// separator.
std::string folderOf(std::string_view path) {
    const std::size_t end = path.find_last_of(separators);
    return std::string(path.substr(0, end == std::string_view::npos ? 0 : std::max<std::size_t>(end, 1)));
}

} // namespace

std::string emulatorFolder() {
    const std::string_view emulator = settings.mameExe;
    std::string folder;
    if (hasDrive(emulator)) {
        folder = folderOf(emulator);
    } else if (isAbsolute(emulator)) {
        // Options may follow, and the path may contain blanks, so only the search can find its end.
        folder = folderOf(findProgram(emulator));
    }
    return folder.empty() ? folderOf(frontEndPath()) : folder;
}
