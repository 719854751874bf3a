// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/proposal.h"

#include "platform/program_search.h"
#include "setup/art_folders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

std::string quotedWord(const std::string& word) {
    return word.find_first_of(" \t") == word.npos ? word : "\"" + word + "\"";
}

bool isSameFolder(const std::string& first, const std::string& second) {
    std::error_code error;
    return fs::path(first).lexically_normal() == fs::path(second).lexically_normal() ||
           fs::equivalent(first, second, error);
}

} // namespace

std::string usualIniPath() {
    const char* configuration = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const fs::path folder = configuration && *configuration == '/' ? fs::path(configuration)
                                                                   : fs::path(home ? home : ".") / ".config";
    return (folder / "kestravox" / "kestravox.ini").string();
}

std::string emulatorCommand(const Emulator& emulator, const std::string& romFolder) {
    std::string command = quotedWord(emulator.program);
    const std::vector<std::string> known = foldersOf(emulator, "rompath");
    const bool isKnown = std::ranges::any_of(
        known, [&](const std::string& folder) { return isSameFolder(folder, romFolder); });
    if (!romFolder.empty() && !isKnown) {
        command += " -rompath " + quotedWord(romFolder);
    }
    return command + " -skip_gameinfo";
}

std::string programOfCommand(const std::string& command) {
    return command.empty() ? "" : findProgram(command);
}

void proposeFolders(ChosenSettings& chosen, const Emulator& emulator, const std::vector<std::string>& roots) {
    std::error_code error;
    for (const FolderKind& kind : folderKinds) {
        const std::string& path = chosen.value(kind.section, kind.key);
        if (path.empty() || !fs::exists(path, error)) {
            chosen.set(kind.section, kind.key, findFolder(kind, emulator, roots));
        }
    }
}

void chooseEmulator(ChosenSettings& chosen, const Emulator& emulator) {
    const std::string& former = chosen.value("Settings", "Mame.exe");
    if (programOfCommand(former) != emulator.program) {
        chosen.set("Settings", "Mame.exe", emulatorCommand(emulator, chosen.value("Settings", "Roms.dir")));
    }
}

bool chooseOrientation(ChosenSettings& chosen, const std::string& word) {
    const auto row = std::ranges::find(settingTable, std::string_view("Orientation"), &SettingRow::key);
    if (std::ranges::none_of(row->words, [&](const ChoiceWord& choice) { return word == choice.word; })) {
        return false;
    }
    chosen.set("Settings", "Orientation", word);
    chosen.set("Extras", "Layout", word == row->defaultText ? "Fixed" : "Turned");
    return true;
}
