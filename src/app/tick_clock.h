// SPDX-License-Identifier: GPL-3.0-or-later
// The clock of the three polling loops (main loop, menu, scroller): ten ticks a second. The loops decide what
// a tick does and how to wait for the next one.
#pragma once

#include "platform/types.h"

#include <cstdint>

// The tick that a loop executes, or executed last. Written by isDue. Times are counts of the performance
// counter.
struct CurrentTick {
    std::int64_t time = 0; // when it was due, however late it is; for an early one, when it began
    std::int64_t period = 0;
    bool isEarly = false;
};
extern CurrentTick currentTick;

// Hooks of isDue, null by default, called while no tick is due: the first asks for an early one by returning
// true, the second is called without one.
extern bool (*earlyTickWanted)();
extern void (*workBetweenTicks)();

class TickClock {
public:
    // The first tick is due one period from now. On a machine without a performance counter the constructor
    // shows a message box with the given owner, and the clock does not run.
    explicit TickClock(HWND boxOwner);

    bool isRunning() const { return period_ > 0; }

    // Whether a tick is to be executed now, because at least one period has passed since the last tick, or
    // because an early one is wanted. The next one is due one period after an early tick.
    bool isDue();

    // Moves the last tick one period forward. Ticks delayed by a stall stay due.
    void advance() { lastTick_ += period_; }

    // Sets the last tick to now. Ticks delayed by a stall are dropped.
    void restart();

private:
    // In counts of the performance counter.
    std::int64_t period_ = 0; // 0: not running
    std::int64_t lastTick_ = 0;
};
