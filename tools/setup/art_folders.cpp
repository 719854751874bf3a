// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/art_folders.h"

#include "catalogue/game_catalogue.h"
#include "platform/files.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <unordered_set>

namespace {

namespace fs = std::filesystem;

// Arcade games that the emulator builds from circuit diagrams.
constexpr const char* romlessGames[] = {"pong", "pongd", "rebound", "breakout"};

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool hasExtension(const fs::path& path, std::string_view extension) {
    return path.extension() == extension;
}

int filesWithExtension(const fs::path& folder, std::string_view extension) {
    std::error_code error;
    int count = 0;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        count += hasExtension(entry->path(), extension) ? 1 : 0;
    }
    return count;
}

bool isUsualName(const FolderKind& kind, const fs::path& path) {
    const std::string name = lowerCase(path.filename().string());
    return std::ranges::any_of(kind.usualNames, [&](const char* usual) { return usual && name == usual; });
}

// The candidates below a root: entries with a usual name, also one level deeper in a folder of the emulator.
void addCandidates(const FolderKind& kind, const fs::path& root, std::vector<fs::path>& candidates) {
    std::error_code error;
    for (fs::directory_iterator entry(root, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (isUsualName(kind, entry->path()) && entry->is_directory(ignored) != kind.isFile) {
            candidates.push_back(entry->path());
        }
    }
}

void addUnique(std::vector<std::string>& folders, const fs::path& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return;
    }
    const std::string path = folder.lexically_normal().string();
    if (std::ranges::find(folders, path) == folders.end()) {
        folders.push_back(path);
    }
}

} // namespace

const std::array<FolderKind, 10> folderKinds = {{
    {"Settings", "Roms.dir", "ROMs", ".zip", "rompath", {"roms", "rom"}, false},
    {"Settings", "Marquee.dir", "Marquees", ".png", "marquees_directory", {"marquees", "marquee"}, false},
    {"Settings",
     "Snapshot.dir",
     "Screen shots",
     ".png",
     "snapshot_directory",
     {"snap", "snaps", "snapshots"},
     false},
    {"Settings", "Title.dir", "Title screens", ".png", "titles_directory", {"titles", "title"}, false},
    {"Settings", "Flyer.dir", "Flyers", ".png", "flyers_directory", {"flyers", "flyer"}, false},
    {"Settings", "Cabinet.dir", "Cabinets", ".png", "cabinets_directory", {"cabinets", "cabinet"}, false},
    {"Settings", "Attract.dir", "Movies", ".avi", "", {"videosnaps", "videos", "movies", "attract"}, false},
    {"Settings", "Mameinfo.dat", "Game information", ".dat", "historypath", {"mameinfo.dat"}, true},
    {"Extras", "History.xml", "Game history", ".xml", "historypath", {"history.xml"}, true},
    {"Settings",
     "AmbienceFile",
     "Ambience",
     ".mp3",
     "",
     {"ambience.mp3", "ambience.ogg", "ambience.wav", "arcade.mp3"},
     true},
}};

std::vector<std::string> searchRoots(const Emulator& emulator, const std::vector<std::string>& given) {
    std::vector<std::string> roots;
    for (const std::string& folder : given) {
        addUnique(roots, folder);
    }
    for (const std::string& roms : foldersOf(emulator, "rompath")) {
        addUnique(roots, fs::path(roms).parent_path());
    }
    const char* home = std::getenv("HOME");
    for (const char* name : {"mame", ".mame", "MAME", "arcade", ""}) {
        if (home && *home != '\0') {
            addUnique(roots, fs::path(home) / name);
        }
    }
    addUnique(roots, fs::path(emulator.program).parent_path());
    for (const char* folder : {"/usr/local/share/games/mame", "/usr/share/games/mame"}) {
        addUnique(roots, folder);
    }
    // The data files are often in a folder of their own.
    for (const std::string& root : std::vector<std::string>(roots)) {
        for (const char* name : {"dats", "dat", "artwork", "history", "sounds"}) {
            addUnique(roots, fs::path(root) / name);
        }
    }
    return roots;
}

std::string findFolder(const FolderKind& kind, const Emulator& emulator,
                       const std::vector<std::string>& roots) {
    std::vector<fs::path> candidates;
    for (const std::string& folder : foldersOf(emulator, kind.emulatorOption)) {
        const fs::path path(folder);
        if (kind.isFile) {
            addCandidates(kind, path, candidates);
        } else if (path.is_absolute()) {
            candidates.push_back(path);
        }
    }
    for (const std::string& root : roots) {
        addCandidates(kind, root, candidates);
    }
    fs::path best;
    int mostFiles = -1;
    std::error_code error;
    for (const fs::path& candidate : candidates) {
        const int files = kind.isFile                          ? fs::is_regular_file(candidate, error)
                          : fs::is_directory(candidate, error) ? filesWithExtension(candidate, kind.extension)
                                                               : -1;
        if (files > mostFiles) {
            mostFiles = files;
            best = candidate;
        }
    }
    return best.lexically_normal().string();
}

FolderCount countFolder(const FolderKind& kind, const std::string& path) {
    FolderCount count;
    std::error_code error;
    if (kind.isFile) {
        count.exists = fs::is_regular_file(path, error);
        count.files = count.exists ? 1 : 0;
        return count;
    }
    count.exists = !path.empty() && fs::is_directory(path, error);
    std::unordered_set<std::string> stems;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
        if (hasExtension(entry->path(), kind.extension)) {
            stems.insert(entry->path().stem().string());
        }
    }
    count.files = static_cast<int>(stems.size());
    for (std::int32_t index = 0; index < gameCount && !stems.empty(); ++index) {
        const GameRecord& game = *allGames[index];
        const bool served = stems.contains(game.name) || (game.cloneOf && stems.contains(game.cloneOf));
        count.games += game.isResource == 0 && served ? 1 : 0;
    }
    return count;
}

std::vector<std::string> gamesWithoutRom() {
    std::vector<std::string> names;
    for (const char* name : romlessGames) {
        for (std::int32_t index = 0; index < gameCount; ++index) {
            if (std::string_view(allGames[index]->name) == name) {
                names.emplace_back(name);
            }
        }
    }
    return names;
}

std::string ownRomFolder(const std::string& emptyFolder) {
    const char* home = std::getenv("HOME");
    const std::string ownFolders = std::string(home ? home : "") + "/";
    return emptyFolder.starts_with(ownFolders) ? emptyFolder
                                               : (fs::path(ownFolders) / "mame" / "roms").string();
}

int addPlaceholders(const std::string& folder) {
    int created = 0;
    for (const std::string& name : gamesWithoutRom()) {
        const std::string path = (fs::path(folder) / (name + ".zip")).string();
        std::error_code error;
        if (!fs::exists(path, error) && replaceFileText(path.c_str(), "")) {
            ++created;
        }
    }
    return created;
}
