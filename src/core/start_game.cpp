#include "core/start_game.h"

#include "catalogue/selection.h"
#include "config/settings.h"
#include "input/controls.h"
#include "input/sounds.h"
#include "launch/game_launch.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/media.h"
#include "platform/screen.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "render/attract_movie.h"

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

// The movie stands until the next frame replaces it; the ambience goes on after the game.
void quieten() {
    if (movieWindow) {
        SendMessageA(movieWindow, MCI_PAUSE, 0, 0);
    }
    if (!settings.ambienceWhilePlaying) {
        SendMessageA(ambienceWindow, MCI_PAUSE, 0, 0);
    }
}

void runGame(const GameRecord& game) {
    const std::string launching = std::string("Launching Game: ") + game.description + "...";
    quieten();
    showMessage(launching.c_str());
    playSoundFile(settings.soundStartGame, SND_SYNC);
    if (GetSystemMetrics(SM_SHUTTINGDOWN) != 0) {
        hideMessage();
        return;
    }
    DWORD exitCode = 0; // stays 0 when the emulator did not start: that has had its own box
    launchGame(&game, &exitCode);
    if (exitCode != 0) {
        playSoundFile(settings.soundError, SND_ASYNC);
        showMessage("Error Launching Mame!");
        Sleep(failedGameDelay);
    }
    Sleep(afterGameDelay);
    flushKeys();
    hideMessage();
    if (!settings.ambienceWhilePlaying) {
        SendMessageA(ambienceWindow, MCI_RESUME, 0, 0);
    }
}

} // namespace

void startSelectedGame(HWND window) {
    const GameRecord* game = selectedGame();
    if (!game) {
        return;
    }
    if (!game->romPresent) {
        tellMissingRom();
        return;
    }
    runGame(*game);
    InvalidateRect(window, nullptr, FALSE);
}
