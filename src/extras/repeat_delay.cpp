// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/repeat_delay.h"

#include "app/tick_clock.h"
#include "config/settings.h"
#include "input/press_tracker.h"
#include "platform/clock.h"

#include <algorithm>
#include <array>

namespace {

struct Move {
    std::int32_t Settings::*key;
    std::int64_t pressedAt = 0; // in counts of the performance counter
    bool isRepeating = false;   // the delay is over
};

std::array<Move, 8> moves = {{{&Settings::keySelectUp},
                              {&Settings::keySelectDown},
                              {&Settings::keySelectPageUp},
                              {&Settings::keySelectPageDown},
                              {&Settings::keyP2SelectUp},
                              {&Settings::keyP2SelectDown},
                              {&Settings::keyP2SelectPageUp},
                              {&Settings::keyP2SelectPageDown}}};

bool mayStep(const ActiveControl& control) {
    const auto move = std::ranges::find(moves, control.key, &Move::key);
    if (move == moves.end()) {
        return true;
    }
    LARGE_INTEGER now{};
    LARGE_INTEGER second{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&second);
    if (control.isNew) {
        // The delay begins when the tick was due, so that the time to its execution does not shift the second
        // step by a tick; but ticks that a stall has delayed are due long before the press.
        const bool isOnTime = now.QuadPart - currentTick.time < currentTick.period;
        move->pressedAt = isOnTime ? currentTick.time : now.QuadPart;
        move->isRepeating = false;
        return true;
    }
    const std::int64_t delay = settings.repeatDelay * second.QuadPart / 1000;
    move->isRepeating = move->isRepeating || now.QuadPart - move->pressedAt >= delay;
    return move->isRepeating;
}

} // namespace

void startRepeatDelay() {
    useControlFilter(mayStep, settings.repeatDelay > 0);
}
