// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/pages.h"
#include "config/settings_file.h"

#include "setup/pages/applied_settings.h"
#include "setup/pages/controls_page.h"
#include "setup/pages/emulator_page.h"
#include "setup/pages/folders_page.h"
#include "setup/pages/list_progress.h"
#include "setup/pages/page_window.h"
#include "setup/pages/screen_page.h"
#include "setup/pages/sounds_page.h"
#include "setup/pages/summary_page.h"
#include "setup/proposal.h"

#include <cstdio>
#include <filesystem>

namespace {

struct SetupPage {
    PageContent (*build)(SetupState&);
    bool (*leave)(SetupState&); // called before the next page; false: the program has been asked to end
};

constexpr std::array<SetupPage, 6> setupPages = {{
    {emulatorPage, leaveEmulatorPage},
    {foldersPage, nullptr},
    {screenPage, nullptr},
    {controlsPage, nullptr},
    {soundsPage, nullptr},
    {summaryPage, nullptr},
}};

PageContent buildPage(SetupState& state, std::size_t index) {
    applySettings(state.chosen);
    PageContent content = setupPages[index].build(state);
    content.place = std::to_string(index + 1) + " of " + std::to_string(setupPages.size());
    return content;
}

bool wantsToLeave() {
    return askOnPage("Leave without writing?", "Nothing has been written yet; what was chosen is lost.",
                     "No, go on", "Yes, leave") != 0;
}

// Returns whether the ini file has been written.
bool runPages(SetupState& state) {
    for (std::size_t index = 0; index < setupPages.size();) {
        const PageAction action = runPage([&state, index] { return buildPage(state, index); });
        if (action == PageAction::leave || (action == PageAction::back && index == 0 && wantsToLeave())) {
            return false;
        }
        if (action == PageAction::back) {
            index -= index > 0 ? 1 : 0;
            continue;
        }
        if (setupPages[index].leave && !setupPages[index].leave(state)) {
            return false;
        }
        ++index;
    }
    return true;
}

} // namespace

std::optional<int> runSetupPages(const SetupOptions& options) {
    SetupState state;
    std::error_code error;
    state.iniPath =
        std::filesystem::absolute(options.ini.empty() ? usualIniPath() : options.ini, error).string();
    state.hadIni = state.chosen.load(state.iniPath);
    applySettings(state.chosen);
    if (!openPageWindow()) {
        return std::nullopt;
    }
    findInstalledEmulators(state);
    const bool isWritten = runPages(state);
    if (isWritten) {
        std::printf("Written: %s\n", state.iniPath.c_str());
    } else {
        removeMadeList(state);
    }
    closePageWindow();
    freeSettings();
    return isWritten ? 0 : 1;
}
