// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/folders_page.h"

#include "setup/pages/folder_walker.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t romKind = 0; // in folderKinds

std::string pathOf(const SetupState& state, const FolderKind& kind) {
    return state.chosen.value(kind.section, kind.key);
}

PageAction changeFolder(SetupState& state, std::size_t index) {
    const FolderKind& kind = folderKinds[index];
    WalkerRequest request;
    request.title = std::string(kind.title) + (kind.isFile ? ": which file?" : ": which folder?");
    request.start = pathOf(state, kind);
    request.wantsFile = kind.isFile;
    std::string path;
    const WalkerResult result = walkFolders(request, path);
    if (result == WalkerResult::chosen) {
        chooseFolder(state, index, path);
    }
    return result == WalkerResult::leave ? PageAction::leave : PageAction::stay;
}

PageLine kindLine(SetupState& state, std::size_t index) {
    const FolderKind& kind = folderKinds[index];
    const FolderCount& count = state.counts[index];
    const std::string path = pathOf(state, kind);
    PageLine line;
    line.label = kind.title;
    if (path.empty()) {
        line.cells = {"none", "", ""};
        line.detail = kind.isFile ? "Enter: choose a file." : "Enter: choose a folder.";
    } else if (!count.exists) {
        line.cells = {path, "missing", ""};
        line.detail = path + (kind.isFile ? " is no file." : " is no folder.");
    } else {
        line.cells = {path, kind.isFile ? "found" : std::to_string(count.files),
                      kind.isFile ? "" : std::to_string(count.games)};
        line.detail = kind.isFile ? path
                                  : path + ": " + std::to_string(count.files) + " files that end in " +
                                        kind.extension + ", for " + std::to_string(count.games) + " games.";
    }
    line.choose = [&state, index] { return changeFolder(state, index); };
    line.clear = [&state, index] { chooseFolder(state, index, ""); };
    return line;
}

std::string placeholderFolder(const SetupState& state) {
    const std::string folder = pathOf(state, folderKinds[romKind]);
    return state.counts[romKind].files > 0 ? folder : ownRomFolder(folder);
}

// The games that need no ROM and have no file yet, as a text; empty: none.
std::string missingPlaceholders(const SetupState& state) {
    std::string names;
    for (const std::string& name : gamesWithoutRom()) {
        std::error_code error;
        if (!fs::exists(fs::path(placeholderFolder(state)) / (name + ".zip"), error)) {
            names += (names.empty() ? "" : ", ") + name;
        }
    }
    return names;
}

PageAction createPlaceholders(SetupState& state) {
    const std::string folder = placeholderFolder(state);
    std::error_code error;
    fs::create_directories(folder, error);
    const int created = addPlaceholders(folder);
    if (created == 0) {
        state.notice = "No file could be created in " + folder + ".";
    } else {
        state.notice = std::to_string(created) + " empty files were created in " + folder + ".";
        chooseFolder(state, romKind, folder);
    }
    return PageAction::stay;
}

} // namespace

PageContent foldersPage(SetupState& state) {
    PageContent content;
    content.title = "Folders";
    content.help = "Where the games' files are. A game is listed when the ROM folder has its zip file; "
                   "everything else adds pictures, movies and texts.";
    content.columns = {{"", 42}, {"Files", 13, true}, {"Games", 13, true}};
    content.keys = "Arrows: move    Enter: change    Del: none    Esc: back";
    content.notice = state.takeNotice();
    for (std::size_t index = 0; index < folderKinds.size(); ++index) {
        content.lines.push_back(kindLine(state, index));
    }
    if (const std::string names = missingPlaceholders(state); !names.empty()) {
        std::error_code error;
        const bool isNew = !fs::exists(placeholderFolder(state), error);
        content.lines.push_back({"Add placeholder files for " + names,
                                 {},
                                 "Games without a ROM: an empty zip file makes the front end list them. "
                                 "Enter creates the files in " +
                                     placeholderFolder(state) + (isNew ? ", a new folder." : "."),
                                 [&state] { return createPlaceholders(state); },
                                 nullptr,
                                 nullptr});
    }
    content.lines.push_back({continueLabel, {}, "", [] { return PageAction::forward; }, nullptr, nullptr});
    content.selected = content.lines.size() - 1;
    return content;
}
