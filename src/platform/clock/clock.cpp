#include "platform/clock.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/clock/waiting.h"

#include <algorithm>

namespace {

constexpr std::int64_t countsPerSecond = nanosecondsPerSecond;

// How long a sleep leaves the display to itself, and no sleep is shorter: a loop that sleeps for a
// millisecond at a time would wake the processor a thousand times a second, for controls that are polled ten
// times.
constexpr std::int64_t napAtRest = 20 * nanosecondsPerMillisecond;
constexpr std::int64_t napBetweenPictures = 10 * nanosecondsPerMillisecond;

std::int64_t nap = napAtRest;

} // namespace

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
    frequency->QuadPart = countsPerSecond;
    return clockNow() >= 0 ? TRUE : FALSE;
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* counter) {
    counter->QuadPart = clockNow();
    return counter->QuadPart >= 0 ? TRUE : FALSE;
}

void Sleep(DWORD milliseconds) {
    const std::int64_t wanted = milliseconds * nanosecondsPerMillisecond;
    const std::int64_t end = clockNow() + (wanted > 0 ? std::max(wanted, nap) : 0);
    do {
        const bool moving = waitAndKeepAlive(std::min(end - clockNow(), nap));
        nap = moving ? napBetweenPictures : napAtRest;
    } while (clockNow() < end && !endRequested());
}
