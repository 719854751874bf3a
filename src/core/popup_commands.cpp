#include "core/popup_commands.h"

#include "catalogue/game_filter.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "input/controls.h"
#include "overlays/game_info_window.h"
#include "overlays/message_window.h"
#include "overlays/options_menu.h"
#include "platform/clock.h"
#include "platform/painting.h"
#include "render/composition.h"

#include <algorithm>
#include <string>

namespace {

// Milliseconds.
constexpr DWORD noInfoMessageTime = 1500;
constexpr DWORD afterMenuDelay = 200;
constexpr DWORD afterPopupDelay = 300;

// Returns the record whose text is shown for the game: its own or its visible parent; null without a text.
const GameRecord* gameWithInfo(const GameRecord& game) {
    if (game.infoLineCount > 0) {
        return &game;
    }
    const std::int32_t parent = game.cloneOf ? findVisibleGame(game.cloneOf) : -1;
    return parent >= 0 && visibleGames[parent]->infoLineCount > 0 ? visibleGames[parent] : nullptr;
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
    if (!settings.useMameInfoDat || !game) {
        return;
    }
    if (const GameRecord* source = gameWithInfo(*game)) {
        showGameInfo(source->infoLines, source->infoLineCount);
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
