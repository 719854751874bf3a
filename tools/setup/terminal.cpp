// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/terminal.h"

#include "setup/art_folders.h"
#include "setup/game_list_maker.h"
#include "setup/proposal.h"
#include "setup/settings_check.h"
#include "setup/settings_writer.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string absolutePath(const std::string& path) {
    std::error_code error;
    return path.empty() ? path : fs::absolute(path, error).lexically_normal().string();
}

std::string iniOf(const SetupOptions& options) {
    return absolutePath(options.ini.empty() ? usualIniPath() : options.ini);
}

void printError(const std::string& text) {
    std::fprintf(stderr, "kestravox-setup: %s\n", text.c_str());
}

void print(const std::string& text) {
    std::printf("%s\n", text.c_str());
}

// Asks the given program, or else the one of the ini file, or else those that are installed.
bool findEmulator(const SetupOptions& options, const ChosenSettings& chosen, Emulator& emulator) {
    if (!options.emulator.empty()) {
        return questionEmulator(absolutePath(programOfCommand(options.emulator)), emulator);
    }
    const std::string former = programOfCommand(chosen.value("Settings", "Mame.exe"));
    if (!former.empty() && questionEmulator(former, emulator)) {
        return true;
    }
    for (const std::string& program : findEmulators()) {
        if (questionEmulator(program, emulator)) {
            return true;
        }
    }
    return false;
}

volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int) {
    stopRequested = 1;
}

// Prints a line of progress about every two seconds. Returns false once a signal asks for the end.
bool showProgress(const std::string& text) {
    constexpr int callsPerLine = 10;
    static int calls = 0;
    if (++calls % callsPerLine == 0) {
        print(text);
        std::fflush(stdout);
    }
    return stopRequested == 0;
}

int makeList(const std::string& command, const std::string& folder) {
    // Ended by a signal, the program would leave the emulator's unfinished output.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, requestStop);
    }
    const std::string failure = makeGameList(command, folder, showProgress);
    if (!failure.empty()) {
        printError(failure);
        return 1;
    }
    loadGameListFrom(folder);
    return 0;
}

void printFolders(const ChosenSettings& chosen) {
    for (const FolderKind& kind : folderKinds) {
        const std::string& path = chosen.value(kind.section, kind.key);
        const FolderCount count = countFolder(kind, path);
        std::string line = std::string(kind.title) + ": ";
        if (!count.exists) {
            line += "none found";
        } else if (kind.isFile) {
            line += path;
        } else {
            line += path + ", " + std::to_string(count.files) + " files, for " + std::to_string(count.games) +
                    " games";
        }
        print(line);
    }
}

void printRomlessGames(const ChosenSettings& chosen) {
    std::string files;
    for (const std::string& name : gamesWithoutRom()) {
        files += " " + name + ".zip";
    }
    const std::string& roms = chosen.value("Settings", "Roms.dir");
    if (!files.empty() && !roms.empty()) {
        print("Games that need no ROM are listed with an empty zip file:");
        print("  mkdir -p '" + roms + "' && cd '" + roms + "' && touch" + files);
    }
}

} // namespace

int writeOnTerminal(const SetupOptions& options) {
    const std::string ini = iniOf(options);
    const std::string folder = fs::path(ini).parent_path().string();
    ChosenSettings chosen;
    const bool isChange = chosen.load(ini);
    Emulator emulator;
    if (!findEmulator(options, chosen, emulator)) {
        printError(options.emulator.empty()
                       ? "No MAME emulator was found. Install one (on Debian: sudo apt install mame), "
                         "or name it with --emulator."
                       : options.emulator + " is no MAME emulator that can be started.");
        return 1;
    }
    print("Emulator: " + emulator.program + ", version " + emulator.version);
    if (!options.roms.empty()) {
        chosen.set("Settings", "Roms.dir", absolutePath(options.roms));
    }
    proposeFolders(chosen, emulator, searchRoots(emulator, {absolutePath(options.art)}));
    const std::string& roms = chosen.value("Settings", "Roms.dir");
    if (!isChange && options.roms.empty() && countFolder(folderKinds.front(), roms).files == 0) {
        chosen.set("Settings", "Roms.dir", ownRomFolder(roms));
    }
    chooseEmulator(chosen, emulator);
    if (!options.orientation.empty() && !chooseOrientation(chosen, options.orientation)) {
        printError(options.orientation + " is none of Normal, ROR, ROL and Inverted.");
        return 1;
    }
    const std::string failure = writeSettings(chosen, ini);
    if (!failure.empty()) {
        printError(failure);
        return 1;
    }
    if (makeList(chosen.value("Settings", "Mame.exe"), folder) != 0) {
        return 1;
    }
    printFolders(chosen);
    printRomlessGames(chosen);
    print("Written: " + ini);
    print("Start it with kestravox-cabinet, or with kestravox in that folder.");
    return 0;
}

int checkOnTerminal(const SetupOptions& options) {
    const std::string ini = iniOf(options);
    const CheckResult result = checkSettings(ini);
    bool hasProblem = false;
    for (const CheckFinding& finding : result.findings) {
        hasProblem = hasProblem || finding.isProblem;
        const std::string place =
            finding.line > 0 ? options.ini + ":" + std::to_string(finding.line) : options.ini;
        print(place + (finding.isProblem ? ": " : ": note: ") + finding.text);
    }
    for (const std::string& line : result.counts) {
        print(line);
    }
    if (!hasProblem) {
        print("Nothing is wrong with " + ini + ".");
    }
    return hasProblem ? 1 : 0;
}

int rebuildOnTerminal(const SetupOptions& options) {
    const std::string ini = iniOf(options);
    ChosenSettings chosen;
    if (!chosen.load(ini)) {
        printError("There is no file " + ini + ". Start kestravox-setup without options first.");
        return 1;
    }
    return makeList(chosen.value("Settings", "Mame.exe"), fs::path(ini).parent_path().string());
}
