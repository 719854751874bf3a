// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/setup_state.h"

#include "setup/proposal.h"

#include <filesystem>

std::string cabinetFolder(const SetupState& state) {
    return std::filesystem::path(state.iniPath).parent_path().string();
}

void countFolders(SetupState& state) {
    for (std::size_t index = 0; index < folderKinds.size(); ++index) {
        const FolderKind& kind = folderKinds[index];
        state.counts[index] = countFolder(kind, state.chosen.value(kind.section, kind.key));
    }
}

void chooseFolder(SetupState& state, std::size_t kind, const std::string& path) {
    const auto proposedCommand = [&state] {
        return emulatorCommand(state.emulator, state.chosen.value("Settings", "Roms.dir"));
    };
    const bool isProposed = state.chosen.value("Settings", "Mame.exe") == proposedCommand();
    state.chosen.set(folderKinds[kind].section, folderKinds[kind].key, path);
    if (isProposed) {
        state.chosen.set("Settings", "Mame.exe", proposedCommand());
    }
    state.counts[kind] = countFolder(folderKinds[kind], path);
}
