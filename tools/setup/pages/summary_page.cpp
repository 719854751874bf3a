// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/summary_page.h"

#include "catalogue/game_catalogue.h"
#include "setup/pages/applied_settings.h"
#include "setup/pages/list_progress.h"
#include "setup/pages/page_window.h"
#include "setup/settings_writer.h"

#include <algorithm>

namespace {

std::string folderSummary(const SetupState& state) {
    std::string text;
    for (std::size_t index = 1; index < folderKinds.size(); ++index) {
        if (state.counts[index].exists && state.counts[index].files > 0) {
            text += (text.empty() ? "" : ", ") + std::string(folderKinds[index].title);
        }
    }
    return text.empty() ? "none" : text;
}

std::string soundSummary(const SetupState& state) {
    int count = 0;
    for (const char* key : {"Startup", "Shutdown", "StartGame", "Select", "Error"}) {
        count += state.chosen.value("Sounds", key).empty() ? 0 : 1;
    }
    return count == 0 ? "none" : std::to_string(count) + " of 5";
}

std::string listedGames(const SetupState& state) {
    const int count = countListedGames(state.chosen);
    if (gameCount == 0) {
        return "not known before the list is made";
    }
    return count > 0 ? std::to_string(count) : "none: the ROM folder has no zip file of a game";
}

PageContent startPage(const SetupState& state, int games) {
    PageContent content;
    content.title = "Ready";
    content.help = "The settings are in " + state.iniPath + ". " + std::to_string(games) +
                   " games are listed. This starts the front end on a terminal:";
    content.columns = {{"", 80}};
    content.lines = {
        {"Installed", {"kestravox-cabinet"}, "", nullptr, nullptr, nullptr},
        {"Otherwise", {"cd " + cabinetFolder(state) + "; kestravox"}, "", nullptr, nullptr, nullptr},
        {"Finish", {}, "", [] { return PageAction::forward; }, nullptr, nullptr}};
    content.selected = content.lines.size() - 1;
    content.notice = state.notice;
    content.keys = "Enter: finish";
    return content;
}

PageAction write(SetupState& state) {
    state.notice = writeSettings(state.chosen, state.iniPath);
    if (!state.notice.empty()) {
        return PageAction::stay;
    }
    state.madeList = false; // it now belongs to the file
    if (!provideGameList(state)) {
        return PageAction::forward; // all is written
    }
    const int games = countListedGames(state.chosen);
    runPage([&state, games] { return startPage(state, games); });
    return PageAction::forward;
}

} // namespace

PageContent summaryPage(SetupState& state) {
    const ChosenSettings& chosen = state.chosen;
    const int scheme = chosenScheme(chosen);
    const std::string colours =
        scheme < 0 ? "as they were" : colourSchemes[static_cast<std::size_t>(scheme)].name;
    PageContent content;
    content.title = "Summary";
    content.help = state.hadIni ? "The former file is kept with .bak at the end of its name."
                                : "Nothing has been written yet.";
    content.columns = {{"", 68}};
    content.notice = state.takeNotice();
    content.keys = "Enter: choose    Esc: back";
    const auto addLine = [&content](const char* label, const std::string& value) {
        content.lines.push_back({label, {value}, value, nullptr, nullptr, nullptr});
    };
    addLine("Emulator", state.emulator.program + ", " + state.emulator.version);
    addLine("Command", chosen.value("Settings", "Mame.exe"));
    addLine("ROMs", chosen.value("Settings", "Roms.dir"));
    addLine("Games listed", listedGames(state));
    addLine("Also found", folderSummary(state));
    addLine("Screen", chosen.value("Settings", "Orientation") + ", colours " + colours + ", font size " +
                          chosen.value("Settings", "Fontsize"));
    addLine("Sounds", soundSummary(state));
    addLine("File", state.iniPath);
    content.lines.push_back(
        {"Write and finish", {}, "", [&state] { return write(state); }, nullptr, nullptr});
    content.selected = content.lines.size() - 1;
    return content;
}
