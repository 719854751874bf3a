// SPDX-License-Identifier: GPL-3.0-or-later
#include "random_play.h"

#include <algorithm>
#include <iterator>

namespace {

using Random = std::minstd_rand;

struct Key {
    const char* name;
    SDL_Scancode code;
};

constexpr Key up = {"Up", SDL_SCANCODE_UP};
constexpr Key down = {"Down", SDL_SCANCODE_DOWN};
constexpr Key left = {"Left", SDL_SCANCODE_LEFT};
constexpr Key right = {"Right", SDL_SCANCODE_RIGHT};
constexpr Key exitKey = {"Escape", SDL_SCANCODE_ESCAPE};
constexpr Key picture = {"Shift_L", SDL_SCANCODE_LSHIFT};

// Those of both players.
constexpr Key moveKeys[] = {up,
                            down,
                            left,
                            right,
                            {"r", SDL_SCANCODE_R},
                            {"f", SDL_SCANCODE_F},
                            {"d", SDL_SCANCODE_D},
                            {"g", SDL_SCANCODE_G},
                            {"space", SDL_SCANCODE_SPACE},
                            {"x", SDL_SCANCODE_X}};
constexpr Key sharedKeys[] = {{"Alt_L", SDL_SCANCODE_LALT}, {"z", SDL_SCANCODE_Z}, picture};
constexpr Key infoKeys[] = {{"Control_L", SDL_SCANCODE_LCTRL}, {"q", SDL_SCANCODE_Q}};
constexpr Key menuKeys[] = {{"2", SDL_SCANCODE_2}, {"s", SDL_SCANCODE_S}};
constexpr Key startKeys[] = {{"1", SDL_SCANCODE_1}, {"a", SDL_SCANCODE_A}};

constexpr int tapTime = 40;     // milliseconds
constexpr int tapPause = 110;   // so that each press is in a tick of its own
constexpr int popupTime = 700;  // until a popup is open
constexpr int closeTime = 1000; // until a popup has closed, with its delays

int upTo(Random& random, int most) {
    return std::uniform_int_distribution(0, most)(random);
}

template <std::size_t count> const Key& oneOf(Random& random, const Key (&keys)[count]) {
    return keys[upTo(random, static_cast<int>(count) - 1)];
}

Stroke tap(const Key& key, int pause = tapPause) {
    return {key.name, key.code, tapTime, pause};
}

void addTaps(PlayAction& action, int count, const Key& key) {
    std::fill_n(std::back_inserter(action.strokes), count, tap(key));
}

void addMoves(PlayAction& action, Random& random) {
    for (int count = upTo(random, 5); count >= 0; --count) {
        const Key& key = oneOf(random, moveKeys);
        const int held = upTo(random, 9) == 0 ? upTo(random, 2000) : upTo(random, 150);
        action.strokes.push_back({key.name, key.code, held, upTo(random, 400)});
    }
}

PlayAction moves(Random& random) {
    PlayAction action{"moves", {}, 300};
    addMoves(action, random);
    return action;
}

PlayAction shared(Random& random) {
    return {"shared command", {tap(oneOf(random, sharedKeys))}, 300};
}

PlayAction info(Random& random) {
    // Without a text each press of the info key shows a message instead.
    constexpr int messages = 2 * 1500 + 300;
    PlayAction action{"information", {tap(oneOf(random, infoKeys), popupTime)}, messages};
    addTaps(action, upTo(random, 20), upTo(random, 3) == 0 ? up : down);
    action.strokes.push_back(tap(oneOf(random, infoKeys), closeTime));
    return action;
}

// Changes a line, plays with the change, and changes it back.
PlayAction menu(Random& random) {
    PlayAction action{"menu", {}, 300};
    const int line = upTo(random, 22);
    const int changes = 1 + upTo(random, 2);
    for (const Key& change : {right, left}) {
        action.strokes.push_back(tap(oneOf(random, menuKeys), popupTime));
        addTaps(action, line, down);
        addTaps(action, changes, change);
        action.strokes.push_back(tap(exitKey, closeTime));
        addMoves(action, random);
        action.strokes.back().pauseMilliseconds += closeTime;
    }
    return action;
}

PlayAction game(Random& random) {
    return {"game", {tap(oneOf(random, startKeys))}, 300, true};
}

PlayAction idle(Random& random, int longest) {
    const int seconds = attractIdleSeconds / 2 + upTo(random, longest - attractIdleSeconds / 2);
    // The first key only ends attract play.
    return {"pause", {tap(picture, seconds * 1000), tap(picture)}, 500};
}

} // namespace

PlayAction nextAction(Random& random, int longestIdleSeconds) {
    const int choice = upTo(random, 99);
    if (choice < 55) {
        return moves(random);
    }
    if (choice < 72) {
        return shared(random);
    }
    if (choice < 80) {
        return info(random);
    }
    if (choice < 88) {
        return menu(random);
    }
    return choice < 96 ? game(random) : idle(random, longestIdleSeconds);
}
