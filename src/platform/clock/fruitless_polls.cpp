// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock/fruitless_polls.h"

#include "platform/clock.h"
#include "platform/clock/clock_source.h"

namespace {

constexpr int pauseThreshold = 32;

// A longer time between two polls, in nanoseconds, means that the loop has done work that no service reports.
constexpr std::int64_t longestGap = nanosecondsPerMillisecond / 2;

int seriesLength = 0;
std::int64_t lastPollEnd = 0;

} // namespace

void pauseAfterFruitlessPolls() {
    seriesLength = clockNow() - lastPollEnd <= longestGap ? seriesLength + 1 : 1;
    if (seriesLength >= pauseThreshold) {
        seriesLength = pauseThreshold; // a pause does not end the series
        Sleep(1);
    }
    lastPollEnd = clockNow();
}

void noteWorkBetweenPolls() {
    seriesLength = 0;
}
