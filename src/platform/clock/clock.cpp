// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/clock/waiting.h"

#include <algorithm>

namespace {

constexpr std::int64_t countsPerSecond = nanosecondsPerSecond;

// Interval at which a sleep keeps the display alive, and the shortest sleep: a loop that sleeps for a
// millisecond at a time would wake the processor a thousand times a second, although the controls are polled
// only ten times.
constexpr std::int64_t idleInterval = 20 * nanosecondsPerMillisecond;
// While input ends a sleep: fewer sleeps make up for what the wait for input costs.
constexpr std::int64_t wakingInterval = 25 * nanosecondsPerMillisecond;
constexpr std::int64_t movingInterval = 10 * nanosecondsPerMillisecond;
constexpr std::int64_t restingInterval = 50 * nanosecondsPerMillisecond;

Pace pace = Pace::waiting;

bool wakesOnInput = false;

std::int64_t intervalAt(Pace current) {
    switch (current) {
    case Pace::moving:
        return movingInterval;
    case Pace::resting:
        return restingInterval;
    default:
        return wakesOnInput ? wakingInterval : idleInterval;
    }
}

} // namespace

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
    frequency->QuadPart = countsPerSecond;
    return clockNow() >= 0 ? TRUE : FALSE;
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* counter) {
    counter->QuadPart = clockNow();
    return counter->QuadPart >= 0 ? TRUE : FALSE;
}

void setSleepWakesOnInput(bool wakes) {
    wakesOnInput = wakes;
}

void Sleep(DWORD milliseconds) {
    const std::int64_t wanted = milliseconds * nanosecondsPerMillisecond;
    const std::int64_t wantedEnd = clockNow() + wanted;
    std::int64_t end = wantedEnd + (wanted > 0 ? std::max(intervalAt(pace) - wanted, std::int64_t{0}) : 0);
    do {
        const std::int64_t wait = std::min(end - clockNow(), intervalAt(pace));
        if (end == wantedEnd || (!wakesOnInput && pace != Pace::resting)) {
            clockWait(wait);
        } else if (waitForInput(wait)) {
            end = wantedEnd;
        }
        pace = keepAlive();
    } while (clockNow() < end && !endRequested());
}
