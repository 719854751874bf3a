// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/commands.h"

#include "app/window_state.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "core/popup_commands.h"
#include "core/start_game.h"
#include "extras/attract_play.h"
#include "extras/favourites.h"
#include "extras/letter_jump.h"
#include "extras/turned_layout.h"
#include "input/controls.h"
#include "input/mapped_controls.h"
#include "input/sounds.h"
#include "overlays/message_window.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "render/attract_movie.h"
#include "render/composition.h"
#include "render/primitives.h"
#include "render/status_bar.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

enum CommandIndex : std::size_t {
    selectUp,
    selectDown,
    selectPageDown,
    selectPageUp,
    exitProgram,
    startGame,
    gameInfo,
    showMenu,
};

// In polling order; indexed by CommandIndex.
constexpr std::array<MappedControl, 8> mappedCommands = {{
    {&Settings::keySelectUp, &Settings::joySelectUp, &Settings::keyP2SelectUp},
    {&Settings::keySelectDown, &Settings::joySelectDown, &Settings::keyP2SelectDown},
    {&Settings::keySelectPageDown, &Settings::joySelectPageDown, &Settings::keyP2SelectPageDown},
    {&Settings::keySelectPageUp, &Settings::joySelectPageUp, &Settings::keyP2SelectPageUp},
    {&Settings::keyExit, &Settings::joyExit, &Settings::keyP2Exit},
    {&Settings::keyStartGame, &Settings::joyStartGame, &Settings::keyP2StartGame},
    {&Settings::keyGameInfo, &Settings::joyGameInfo, &Settings::keyP2GameInfo},
    {&Settings::keyShowMenu, &Settings::joyShowMenu, &Settings::keyP2ShowMenu},
}};

constexpr SharedControl jumpBack = {&Settings::keyJumpBack, &Settings::joyJumpBack};
constexpr SharedControl jumpForward = {&Settings::keyJumpForward, &Settings::joyJumpForward};
constexpr SharedControl nextLetter = {&Settings::keyNextLetter, &Settings::joyNextLetter};
constexpr SharedControl previousLetter = {&Settings::keyPreviousLetter, &Settings::joyPreviousLetter};
constexpr SharedControl randomPick = {&Settings::keyRandom, &Settings::joyRandom};
constexpr SharedControl sortCycle = {&Settings::keySort, &Settings::joySort};
constexpr SharedControl pictureCycle = {&Settings::keyPicture, &Settings::joyPicture};

constexpr std::int32_t jumpLength = 100;
constexpr std::int32_t lastSortOrder = sortByManufacturer;
constexpr std::int32_t lastCycledPicture = previewTitles;

void redrawNow(HWND window) {
    redraw(window);
    UpdateWindow(window);
}

std::int32_t pageStep(HWND window) {
    if (settings.layout == layoutTurned) {
        return turnedPageStep();
    }
    RECT client{};
    GetClientRect(window, &client);
    const std::int32_t step = settings.menuType == menuTypeListView
                                  ? linesThatFit(backDC, client.right, 2 * client.bottom, statusBarHeight)
                                  : tileRows(client.right, client.bottom, statusBarHeight);
    return std::max(step, 0);
}

// Both return false when the selection is already at the end of the list.
bool moveUp(std::int32_t distance) {
    if (selectedIndex <= 0) {
        return false;
    }
    selectedIndex = std::max(selectedIndex - distance, 0);
    return true;
}

bool moveDown(std::int32_t distance) {
    if (selectedIndex >= visibleCount - 1) {
        return false;
    }
    selectedIndex = std::min(selectedIndex + distance, visibleCount - 1);
    return true;
}

// Returns false when the index is negative.
bool moveTo(std::int32_t index) {
    if (index < 0) {
        return false;
    }
    selectedIndex = index;
    return true;
}

// Shows the new selection, or plays the error sound when the selection could not move.
void finishMove(HWND window, bool moved, void (*show)(HWND)) {
    if (moved) {
        show(window);
    }
    playSoundFile(moved ? settings.soundSelect : settings.soundError, SND_ASYNC);
}

void executeMoves(HWND window, const PolledControls& controls) {
    if (controls.isPressed(selectUp)) {
        finishMove(window, moveUp(1), redraw);
    }
    if (controls.isPressed(selectDown)) {
        finishMove(window, moveDown(1), redraw);
    }
    if (controls.isPressed(selectPageUp)) {
        finishMove(window, moveUp(pageStep(window)), redrawNow);
    }
    if (controls.isPressed(selectPageDown)) {
        finishMove(window, moveDown(pageStep(window)), redrawNow);
    }
    if (isPressed(jumpBack)) {
        finishMove(window, moveUp(jumpLength), redrawNow);
    }
    if (isPressed(jumpForward)) {
        finishMove(window, moveDown(jumpLength), redrawNow);
    }
    if (isPressed(nextLetter)) {
        finishMove(window, moveTo(firstOfNextGroup()), redrawNow);
    }
    if (isPressed(previousLetter)) {
        finishMove(window, moveTo(firstOfPreviousGroup()), redrawNow);
    }
}

void changeSortOrder(HWND window) {
    selectRandomGame();
    settings.sortBy = settings.sortBy >= lastSortOrder ? 0 : settings.sortBy + 1;
    showMessage("Filtering And Sorting Roms...");
    sortGames();
    filterGames();
    hideMessage();
    finishMove(window, true, redrawNow);
}

void executeSharedCommands(HWND window) {
    if (isPressed(randomPick)) {
        selectRandomGame();
        finishMove(window, true, redrawNow);
    }
    if (isPressed(sortCycle)) {
        changeSortOrder(window);
    }
    if (isPressed(pictureCycle)) {
        settings.previewPictures =
            settings.previewPictures >= lastCycledPicture ? 0 : settings.previewPictures + 1;
        finishMove(window, true, redrawNow);
    }
}

} // namespace

void handleTick(HWND window) {
    if (attractPlayTakesTick(window)) {
        return;
    }
    const PolledControls controls = pollControls(mappedCommands);
    // A new rotation becomes visible with the next redraw, usually by a command of the same tick.
    turnToPlayer(controls);
    executeMoves(window, controls);
    executeSharedCommands(window);
    if (controls.isPressed(exitProgram)) {
        playSoundFile(settings.soundShutdown, SND_SYNC);
        PostQuitMessage(0);
    }
    if (controls.isPressed(startGame)) {
        startSelectedGame(window);
    }
    if (controls.isPressed(gameInfo)) {
        showSelectedGameInfo();
    }
    if (controls.isPressed(showMenu)) {
        runOptionsMenu(window);
    }
    serveFavourites(window);
    if (awaitedMovieIsReady()) {
        redraw(window);
    }
    startAttractPlayWhenIdle(window);
    // A popup consumes WM_QUIT when it closes, so post it again for the main loop.
    RECT client{};
    if (controls.isPressed(exitProgram) || !GetClientRect(window, &client)) {
        PostQuitMessage(0);
    }
}
