#include "core/start_game.h"

#include "input/controls.h"
#include "launch/game_launch.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/window.h"
#include "state/shared_state.h"

#include <string>

namespace {

// Milliseconds.
constexpr DWORD missingRomDelay = 1500;
constexpr DWORD failedGameDelay = 3000;
constexpr DWORD afterGameDelay = 1000;

void tellMissingRom() {
    showMessage("Sorry, you appear to be missing these ROMs...");
    Sleep(missingRomDelay);
    hideMessage();
}

void runGame(const GameRecord& game) {
    const std::string launching = std::string("Launching Game: ") + game.description + "...";
    showMessage(launching.c_str());
    DWORD exitCode = 0; // stays 0 when the emulator did not start: that has had its own box
    launchGame(&game, &exitCode);
    if (exitCode != 0) {
        showMessage("Error Launching Mame!");
        Sleep(failedGameDelay);
    }
    Sleep(afterGameDelay);
    flushKeys();
    hideMessage();
}

} // namespace

void startSelectedGame(HWND window) {
    if (selectedIndex < 0 || selectedIndex >= visibleCount) {
        return;
    }
    const GameRecord& game = *visibleGames[selectedIndex];
    if (!game.romPresent) {
        tellMissingRom();
        return;
    }
    runGame(game);
    InvalidateRect(window, nullptr, FALSE);
}
