// SPDX-License-Identifier: GPL-3.0-or-later
// Random actions of a player, weighted as at a cabinet: moves, commands, popups, games and pauses. Used by
// play_soak, which presses the keys. Each action ends in the list, with the settings that it started with.
#pragma once

#include <SDL_scancode.h>

#include <random>
#include <vector>

// One key press. `name` is the key's X keysym.
struct Stroke {
    const char* name;
    SDL_Scancode code;
    int heldMilliseconds;
    int pauseMilliseconds; // after the release
};

struct PlayAction {
    const char* name;
    std::vector<Stroke> strokes;
    int settleMilliseconds; // the program's own delays after the last stroke
    bool startsGame = false;
};

// Seconds without a key after which an action may expect attract play.
constexpr int attractIdleSeconds = 20;

// An idle action lasts at most that long.
PlayAction nextAction(std::minstd_rand& random, int longestIdleSeconds);
