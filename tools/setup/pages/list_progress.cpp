// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/list_progress.h"

#include "setup/game_list_maker.h"
#include "setup/pages/page_controls.h"
#include "setup/pages/page_window.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

fs::path listPath(const SetupState& state) {
    return fs::path(cabinetFolder(state)) / "listinfo.dat";
}

PageContent progressPage(const std::string& text, std::int64_t milliseconds) {
    constexpr std::int64_t second = 1000;
    PageContent content;
    content.title = "List of games";
    content.help = "The emulator is asked for the games that it knows. That takes about half a minute, once; "
                   "the front end starts with the list then.";
    content.large = std::to_string(milliseconds / second) + " s";
    content.notice = text;
    content.keys = "Esc: stop";
    return content;
}

} // namespace

bool provideGameList(SetupState& state) {
    std::error_code error;
    const std::string folder = cabinetFolder(state);
    const bool hadList = fs::exists(listPath(state), error);
    const bool isCurrent = state.listedFor.empty() || state.listedFor == state.emulator.program;
    if (hadList && isCurrent && loadGameListFrom(folder)) {
        state.listedFor = state.emulator.program;
        return true;
    }
    const std::int64_t start = pageMilliseconds();
    bool isOpen = true;
    const auto progress = [&](const std::string& text) {
        showPage(progressPage(text, pageMilliseconds() - start));
        isOpen = servePageWindow();
        return isOpen && pollPageKey() != PageKey::back;
    };
    progress("The emulator is started");
    flushPageKeys();
    const std::string failure = makeGameList(state.chosen.value("Settings", "Mame.exe"), folder, progress);
    if (failure.empty()) {
        state.listedFor = state.emulator.program;
        state.madeList = state.madeList || !hadList;
    } else {
        state.notice =
            "The list of games was not made: " + failure + " The front end makes it when it starts.";
    }
    loadGameListFrom(folder);
    return isOpen && servePageWindow();
}

void removeMadeList(const SetupState& state) {
    std::error_code error;
    if (state.madeList) {
        removeGameList(cabinetFolder(state));
    }
    fs::remove(cabinetFolder(state), error); // only if it is empty
}
