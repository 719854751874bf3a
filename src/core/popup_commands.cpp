// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/popup_commands.h"

#include "catalogue/game_filter.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "extras/history_xml.h"
#include "input/controls.h"
#include "overlays/game_info_window.h"
#include "overlays/message_window.h"
#include "overlays/options_menu.h"
#include "platform/clock.h"
#include "platform/painting.h"
#include "render/composition.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

// Milliseconds.
constexpr DWORD noInfoMessageTime = 1500;
constexpr DWORD afterMenuDelay = 200;
constexpr DWORD afterPopupDelay = 300;

// Returns null when the game has no parent or that one is not visible.
const GameRecord* visibleParent(const GameRecord& game) {
    const std::int32_t parent = game.cloneOf ? findVisibleGame(game.cloneOf) : -1;
    return parent >= 0 ? visibleGames[parent] : nullptr;
}

// The text of the game or else of its visible parent, followed by its history or else its parent's. Borrows
// from the records and from `history`, which it fills.
std::vector<const char*> infoLinesOf(const GameRecord& game, std::vector<std::string>& history) {
    const GameRecord* parent = visibleParent(game);
    const GameRecord* source = game.infoLineCount > 0 || !parent ? &game : parent;
    std::vector<const char*> lines(source->infoLines, source->infoLines + source->infoLineCount);
    history = historyText(game.name);
    if (history.empty() && parent) {
        history = historyText(parent->name);
    }
    if (!lines.empty() && !history.empty()) {
        lines.push_back("");
    }
    for (const std::string& line : history) {
        lines.push_back(line.c_str());
    }
    return lines;
}

void filterAndKeepSelection() {
    const GameRecord* game = selectedGame();
    const std::string name = game ? game->name : "";
    filterGames();
    selectedIndex = std::max(findVisibleGame(name.c_str()), 0);
}

} // namespace

void showSelectedGameInfo() {
    const GameRecord* game = selectedGame();
    if ((!settings.useMameInfoDat && !settings.historyXml) || !game) {
        return;
    }
    std::vector<std::string> history;
    const std::vector<const char*> lines = infoLinesOf(*game, history);
    if (!lines.empty()) {
        showGameInfo(lines.data(), static_cast<std::int32_t>(lines.size()));
        Sleep(afterPopupDelay);
        flushKeys();
    } else {
        showMessage("No game information found.");
        Sleep(noInfoMessageTime);
        hideMessage();
    }
}

void runOptionsMenu(HWND window) {
    if (showOptionsMenu()) {
        Sleep(afterMenuDelay);
        filterAndKeepSelection();
        redraw(window);
    }
    Sleep(afterPopupDelay);
    flushKeys();
}
