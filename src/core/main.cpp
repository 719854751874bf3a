// SPDX-License-Identifier: GPL-3.0-or-later
// Program entry: start-up, main loop, shutdown.
#include "app/error_box.h"
#include "app/game_files.h"
#include "app/window_state.h"
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/rom_scan.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "core/catalogue_loader.h"
#include "core/main_loop.h"
#include "core/main_window.h"
#include "extras/attract_play.h"
#include "extras/exit_command.h"
#include "extras/favourites.h"
#include "extras/history_xml.h"
#include "extras/instant_response.h"
#include "extras/joystick_hotplug.h"
#include "extras/repeat_delay.h"
#include "extras/save_on_change.h"
#include "extras/turned_layout.h"
#include "input/controls.h"
#include "input/sounds.h"
#include "overlays/message_window.h"
#include "platform/entry.h"
#include "platform/media.h"
#include "platform/message_box.h"
#include "platform/module.h"
#include "platform/painting.h"
#include "platform/screen.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "render/composition.h"
#include "render/page.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// Starts loading the media player, when there may be movies or an ambience track. While that lasts, opening a
// font or a device takes up to 80 ms longer, so it starts after the first frame.
void prepareMedia() {
    if (fileExists(settings.attractDir) || fileExists(settings.ambienceFile)) {
        mediaPrepare();
    }
}

// Returns 1 when the catalogue is ready; 0 after reporting the failure in a message box.
int initGames() {
    showMessage("Loading Game Information...");
    if (!loadGameList()) {
        showError(mainWindow, "Error loading game list!");
        return 0;
    }
    startFavourites();
    showMessage("Filtering And Sorting...");
    scanRoms();
    sortGames();
    filterGames();
    flushKeys();
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    topIndex = 0;
    selectedIndex = std::max(findVisibleGame(settings.selectedGame), 0);
    hideMessage();
    initJoystick();
    playSoundFile(settings.soundStartup, SND_ASYNC);
    startAmbience();
    if (gameCount == 0) {
        prepareMedia();
        showError(mainWindow, "No games found!");
        return 0;
    }
    return 1;
}

int openMainWindow() {
    if (!registerMainWindowClass()) {
        showError(nullptr, "Failed to register window class!");
        return 0;
    }
    mainWindow = createMainWindow();
    if (!mainWindow) {
        showError(nullptr, "Failed to create window!");
        return 0;
    }
    return 1;
}

// Returns 0 when the display connection was lost before the first frame.
int showFirstFrame() {
    if (selectedIndex >= visibleCount) {
        selectedIndex = 0;
    }
    ShowWindow(mainWindow, SW_MAXIMIZE);
    drawScreen(backDC, backBitmap);
    UpdateWindow(mainWindow);
    return GetSystemMetrics(SM_CMONITORS) > 0 ? 1 : 0;
}

// Extras that need nothing but the settings. An extra whose setting is off does nothing.
void startEarlyExtras() {
    startTurnedLayout();
    startRepeatDelay();
    startInstantResponse();
    startJoystickHotplug();
}

// Extras that need the games or start after the first frame.
void startLateExtras() {
    startSaveOnChange();
    startAttractPlay();
    startHistory();
}

void freeResources() {
    stopHistory();
    freeGameList();
    freeSettings();
    releaseFrameBuffer();
}

} // namespace

int WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandTail, int) {
    startReadingGameList();
    SetConsoleTitleA("KESTRAVOX");
    iniPath = *commandTail != '\0' ? commandTail : ".\\kestravox.ini";
    appInstance = instance;
    mainWindow = nullptr;
    if (!openMainWindow()) {
        return 0;
    }
    loadSettings();
    settings.baseOrientation = settings.orientation;
    startEarlyExtras();
    if (!initGames() || !showFirstFrame()) {
        showError(mainWindow, "Initialization failed");
        return 1;
    }
    hideMouseCursor();
    startLateExtras();
    prepareMedia();
    const int result = runMainLoop();
    saveSettings(playersGameName());
    // Copied, since the settings are freed before it is run.
    const std::string exitCommand = settings.exitCommand && result == 0 ? settings.exitCommand : "";
    freeResources();
    showMouseCursor();
    PlaySoundA(nullptr, nullptr, 0);
    DestroyWindow(mainWindow);
    runExitCommand(exitCommand);
    return result;
}
