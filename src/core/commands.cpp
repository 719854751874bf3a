#include "core/commands.h"

#include "app/window_state.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "core/popup_commands.h"
#include "core/start_game.h"
#include "input/controls.h"
#include "input/mapped_controls.h"
#include "input/sounds.h"
#include "overlays/message_window.h"
#include "platform/keys.h"
#include "platform/sound.h"
#include "platform/window.h"
#include "render/composition.h"
#include "render/primitives.h"
#include "render/status_bar.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

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

// In the order in which they are polled.
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

// A command with the same controls on every cabinet.
struct FixedCommand {
    int key;
    int joystick;
};

constexpr FixedCommand jumpBack = {VK_SPACE, 32};
constexpr FixedCommand jumpForward = {'X', 4};
constexpr FixedCommand randomPick = {VK_MENU, 2};
constexpr FixedCommand sortCycle = {'Z', 16};
constexpr FixedCommand pictureCycle = {VK_SHIFT, 128};

constexpr std::int32_t jumpLength = 100;
constexpr std::int32_t lastSortOrder = sortByManufacturer;
constexpr std::int32_t lastCycledPicture = previewTitles;

bool fires(const FixedCommand& command) {
    return keyPressed(command.key) || joyPressed(command.joystick);
}

void redrawNow(HWND window) {
    redraw(window);
    UpdateWindow(window);
}

std::int32_t pageStep(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const std::int32_t step = settings.menuType == menuTypeListView
                                  ? linesThatFit(backDC, client.right, 2 * client.bottom, statusBarHeight)
                                  : tileRows(client.right, client.bottom, statusBarHeight);
    return std::max(step, 0);
}

// False when the selection stands at the edge of the list already.
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

// Shows the new selection, or lets a refused move be heard.
void finishMove(HWND window, bool moved, void (*show)(HWND)) {
    if (moved) {
        show(window);
    }
    playSoundFile(moved ? settings.soundSelect : settings.soundError, SND_ASYNC);
}

void carryOutMoves(HWND window, const PolledControls& controls) {
    if (controls.asksFor(selectUp)) {
        finishMove(window, moveUp(1), redraw);
    }
    if (controls.asksFor(selectDown)) {
        finishMove(window, moveDown(1), redraw);
    }
    if (controls.asksFor(selectPageUp)) {
        finishMove(window, moveUp(pageStep(window)), redrawNow);
    }
    if (controls.asksFor(selectPageDown)) {
        finishMove(window, moveDown(pageStep(window)), redrawNow);
    }
    if (fires(jumpBack)) {
        finishMove(window, moveUp(jumpLength), redrawNow);
    }
    if (fires(jumpForward)) {
        finishMove(window, moveDown(jumpLength), redrawNow);
    }
}

void selectRandomGame() {
    // Fifteen bits of chance, whatever the library's own generator gives.
    constexpr int randomMask = 0x7FFF;
    constexpr float scale = 3.0517578125e-05F;
    const std::int64_t product = std::int64_t{std::rand() & randomMask} * visibleCount;
    selectedIndex = static_cast<std::int32_t>(static_cast<float>(product) * scale);
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

void carryOutFixedCommands(HWND window) {
    if (fires(randomPick)) {
        selectRandomGame();
        finishMove(window, true, redrawNow);
    }
    if (fires(sortCycle)) {
        changeSortOrder(window);
    }
    if (fires(pictureCycle)) {
        settings.previewPictures =
            settings.previewPictures >= lastCycledPicture ? 0 : settings.previewPictures + 1;
        finishMove(window, true, redrawNow);
    }
}

} // namespace

void handleTick(HWND window) {
    const PolledControls controls = pollControls(mappedCommands);
    // The new rotation shows with the next frame, which the command of the same tick usually brings.
    turnToPlayer(controls);
    carryOutMoves(window, controls);
    carryOutFixedCommands(window);
    if (controls.asksFor(exitProgram)) {
        playSoundFile(settings.soundShutdown, SND_SYNC);
        PostQuitMessage(0);
    }
    if (controls.asksFor(startGame)) {
        startSelectedGame(window);
    }
    if (controls.asksFor(gameInfo)) {
        showSelectedGameInfo();
    }
    if (controls.asksFor(showMenu)) {
        runOptionsMenu(window);
    }
    // A popup that sees a quit ends with it, and the program has to end all the same.
    RECT client{};
    if (controls.asksFor(exitProgram) || !GetClientRect(window, &client)) {
        PostQuitMessage(0);
    }
}
