// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the time since a moment, with the performance counter. Used by the extras that wait for seconds.
#pragma once

#include <cstdint>

constexpr std::int64_t millisecondsPerSecond = 1000;

class Stopwatch {
public:
    // Starts the measurement anew.
    void restart();

    // Moves its start forward, so that periods measured one after the other add up exactly.
    void advance(std::int64_t milliseconds) { start_ += milliseconds; }

    // Milliseconds since the start; since the start of the machine before the first restart.
    std::int64_t milliseconds() const;

private:
    std::int64_t start_ = 0; // in milliseconds of the counter
};
