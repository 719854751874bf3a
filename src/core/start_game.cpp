// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/start_game.h"

#include "catalogue/selection.h"
#include "config/settings.h"
#include "extras/save_on_change.h"
#include "input/controls.h"
#include "input/sounds.h"
#include "launch/game_launch.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/screen.h"
#include "platform/sound.h"
#include "render/attract_movie.h"

#include <string>

namespace {

// Milliseconds.
constexpr DWORD missingRomMessageTime = 1500;
constexpr DWORD failedGameMessageTime = 3000;
constexpr DWORD afterGameDelay = 1000;

void showMissingRomMessage() {
    showMessage("Sorry, you appear to be missing these ROMs...");
    Sleep(missingRomMessageTime);
    hideMessage();
}

// The movie stays paused until the next frame replaces it; the ambience resumes after the game.
void pauseMedia() {
    if (movieWindow) {
        SendMessageA(movieWindow, MCI_PAUSE, 0, 0);
    }
    if (!settings.ambienceWhilePlaying) {
        SendMessageA(ambienceWindow, MCI_PAUSE, 0, 0);
    }
}

void runGame(const GameRecord& game) {
    const std::string launching = std::string("Launching Game: ") + game.description + "...";
    pauseMedia();
    showMessage(launching.c_str());
    saveBeforeGame();
    playSoundFile(settings.soundStartGame, SND_SYNC);
    if (GetSystemMetrics(SM_SHUTTINGDOWN) != 0) {
        hideMessage();
        return;
    }
    DWORD exitCode = 0; // stays 0 when the emulator did not start: launchGame has reported that
    launchGame(&game, &exitCode);
    if (exitCode != 0) {
        playSoundFile(settings.soundError, SND_ASYNC);
        showMessage("Error Launching Mame!");
        Sleep(failedGameMessageTime);
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
        showMissingRomMessage();
        return;
    }
    runGame(*game);
    InvalidateRect(window, nullptr, FALSE);
}
