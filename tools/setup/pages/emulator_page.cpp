// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/emulator_page.h"

#include "setup/pages/folder_walker.h"
#include "setup/pages/list_progress.h"
#include "setup/pages/page_window.h"
#include "setup/pages/sounds_page.h"
#include "setup/proposal.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

void addEmulator(SetupState& state, const std::string& program) {
    const bool isKnown =
        std::ranges::find(state.emulators, program, &Emulator::program) != state.emulators.end();
    Emulator emulator;
    if (!program.empty() && !isKnown && questionEmulator(program, emulator)) {
        state.emulators.push_back(emulator);
    }
}

std::string romFolders(const Emulator& emulator) {
    std::string text;
    for (const std::string& folder : foldersOf(emulator, "rompath")) {
        text += (text.empty() ? "" : ", ") + folder;
    }
    return text.empty() ? "It names no folder for ROMs." : "It looks for ROMs in " + text + ".";
}

bool isExecutable(const std::string& path) {
    std::error_code error;
    return (fs::status(path, error).permissions() & fs::perms::owner_exec) != fs::perms::none;
}

PageAction chooseAnother(SetupState& state) {
    WalkerRequest request;
    request.title = "Which program is the emulator?";
    request.start = state.emulator.program.empty() ? "/usr" : state.emulator.program;
    request.wantsFile = true;
    request.allowsNone = false;
    request.isCandidate = isExecutable;
    std::string program;
    const WalkerResult result = walkFolders(request, program);
    if (result == WalkerResult::leave) {
        return PageAction::leave;
    }
    if (result == WalkerResult::chosen) {
        addEmulator(state, program);
        const auto found = std::ranges::find(state.emulators, program, &Emulator::program);
        if (found == state.emulators.end()) {
            state.notice = program + " is no MAME emulator that can be started.";
        } else {
            state.emulator = *found;
        }
    }
    return PageAction::stay;
}

PageLine emulatorLine(SetupState& state, const Emulator& emulator) {
    const bool isChosen = emulator.program == state.emulator.program;
    PageLine line;
    line.label = emulator.program;
    line.cells = {emulator.version, isChosen ? "chosen" : ""};
    line.detail = romFolders(emulator);
    line.choose = [&state, emulator] {
        state.emulator = emulator;
        return PageAction::forward;
    };
    return line;
}

} // namespace

void findInstalledEmulators(SetupState& state) {
    PageContent waiting;
    waiting.title = "Emulator";
    waiting.help = "Looking for the emulator...";
    showPage(waiting);
    const std::string former = programOfCommand(state.chosen.value("Settings", "Mame.exe"));
    addEmulator(state, former);
    for (const std::string& program : findEmulators()) {
        addEmulator(state, program);
    }
    if (state.emulator.program.empty() && !state.emulators.empty()) {
        state.emulator = state.emulators.front();
    }
    state.listedFor = former;
}

PageContent emulatorPage(SetupState& state) {
    PageContent content;
    content.title = "Emulator";
    content.keys = "Arrows, stick: move    Enter, button 1: choose    Esc, button 2: leave";
    content.columns = {{state.emulators.empty() ? "" : "Version", 30}, {"", 15}};
    content.notice = state.takeNotice();
    for (const Emulator& emulator : state.emulators) {
        content.lines.push_back(emulatorLine(state, emulator));
        if (emulator.program == state.emulator.program) {
            content.selected = content.lines.size() - 1;
        }
    }
    if (state.emulators.empty()) {
        content.help =
            "No MAME emulator was found. Install one: on Debian with \"sudo apt install mame\" on a "
            "terminal. Then choose \"Look again\".";
    } else {
        content.help = std::string("Which emulator runs the games? ") +
                       (state.hadIni ? "What " + state.iniPath + " says is shown as what is chosen."
                                     : "Each choice can be changed later.");
    }
    content.lines.push_back({"Another program...",
                             {},
                             "Choose the emulator's program file.",
                             [&state] { return chooseAnother(state); },
                             nullptr,
                             nullptr});
    content.lines.push_back({"Look again",
                             {},
                             "After an emulator has been installed.",
                             [&state] {
                                 findInstalledEmulators(state);
                                 state.notice = std::to_string(state.emulators.size()) + " found.";
                                 return PageAction::stay;
                             },
                             nullptr,
                             nullptr});
    return content;
}

bool leaveEmulatorPage(SetupState& state) {
    const bool isNew = state.proposedFor != state.emulator.program;
    if (isNew) {
        PageContent waiting;
        waiting.title = "Folders";
        waiting.help = "Looking for folders...";
        showPage(waiting);
        state.roots = searchRoots(state.emulator, {});
        proposeFolders(state.chosen, state.emulator, state.roots);
        findSounds(state);
        chooseEmulator(state.chosen, state.emulator);
        state.proposedFor = state.emulator.program;
    }
    const bool isOpen = provideGameList(state);
    countFolders(state);
    return isOpen;
}
