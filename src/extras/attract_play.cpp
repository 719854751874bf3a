// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/attract_play.h"

#include "app/stopwatch.h"
#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/setting_table.h"
#include "config/settings.h"
#include "input/controls.h"
#include "platform/painting.h"
#include "render/composition.h"

#include <variant>

namespace {

enum class State {
    off,
    showing,
    stopping, // until all controls are released
};

State state = State::off;
std::uint32_t seenUses = 0; // value of controlUses at the end of the last tick
Stopwatch sinceUse;
Stopwatch sincePick;

// Polls all controls, so that no recorded press is left.
bool isAnyControlPressed() {
    bool pressed = false;
    for (const SettingRow& row : settingTable) {
        if (row.kind != SettingKind::keyCode && row.kind != SettingKind::joystickCode) {
            continue;
        }
        const std::int32_t code = settings.*std::get<std::int32_t Settings::*>(row.field);
        if (code != 0 && (row.kind == SettingKind::keyCode ? keyPressed(code) : joyPressed(code))) {
            pressed = true;
        }
    }
    return pressed;
}

void pickGame(HWND window) {
    selectRandomGame();
    redraw(window);
    UpdateWindow(window);
}

void pickWhenDue(HWND window) {
    const std::int64_t step = settings.idleStep * millisecondsPerSecond;
    if (!appActive) {
        sincePick.restart();
    } else if (sincePick.milliseconds() >= step) {
        sincePick.advance(step);
        if (sincePick.milliseconds() >= step) {
            sincePick.restart(); // the machine was stopped meanwhile
        }
        pickGame(window);
    }
}

} // namespace

void startAttractPlay() {
    state = State::off;
    gameBeforeAttractPlay = nullptr;
    seenUses = controlUses;
    sinceUse.restart();
}

bool attractPlayTakesTick(HWND window) {
    if (state == State::off) {
        return false;
    }
    if (isAnyControlPressed()) {
        // The player takes over the game on the screen.
        state = State::stopping;
        gameBeforeAttractPlay = nullptr;
        return true;
    }
    if (state == State::stopping) {
        state = State::off;
        return false;
    }
    pickWhenDue(window);
    return true;
}

void startAttractPlayWhenIdle(HWND window) {
    if (settings.idleSeconds == 0) {
        return;
    }
    if (controlUses != seenUses || !appActive) {
        seenUses = controlUses;
        sinceUse.restart();
    } else if (visibleCount > 0 && sinceUse.milliseconds() >= settings.idleSeconds * millisecondsPerSecond) {
        state = State::showing;
        gameBeforeAttractPlay = selectedGame();
        sincePick.restart();
        pickGame(window);
    }
}
