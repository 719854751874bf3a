// The clock of the three loops: ten ticks a second. Used by the main loop, the menu and the scroller, which
// decide what a tick does and how they wait for the next one.
#pragma once

#include "platform/types.h"

#include <cstdint>

class TickClock {
public:
    // The first tick is due one period from now. On a machine without a performance counter a box says so, on
    // the given owner, and the clock does not run.
    explicit TickClock(HWND boxOwner);

    bool runs() const { return period_ > 0; }

    // At least one period has passed since the time of the last tick.
    bool isDue() const;

    // One period later. Ticks that a stall has held up stay due.
    void advance() { lastTick_ += period_; }

    // From now on. Ticks that a stall has held up are dropped.
    void restart();

private:
    std::int64_t period_ = 0; // counts of the performance counter
    std::int64_t lastTick_ = 0;
};
