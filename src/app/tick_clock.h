// The clock of the three polling loops (main loop, menu, scroller): ten ticks a second. The loops decide what
// a tick does and how to wait for the next one.
#pragma once

#include "platform/types.h"

#include <cstdint>

class TickClock {
public:
    // The first tick is due one period from now. On a machine without a performance counter the constructor
    // shows a message box with the given owner, and the clock does not run.
    explicit TickClock(HWND boxOwner);

    bool isRunning() const { return period_ > 0; }

    // Whether at least one period has passed since the last tick.
    bool isDue() const;

    // Moves the last tick one period forward. Ticks delayed by a stall stay due.
    void advance() { lastTick_ += period_; }

    // Sets the last tick to now. Ticks delayed by a stall are dropped.
    void restart();

private:
    // In counts of the performance counter.
    std::int64_t period_ = 0; // 0: not running
    std::int64_t lastTick_ = 0;
};
