// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock/clock_source.h"

#include <cerrno>
#include <ctime>

std::int64_t clockNow() {
    timespec now{};
    if (clock_gettime(CLOCK_MONOTONIC, &now) != 0) {
        return -1;
    }
    return static_cast<std::int64_t>(now.tv_sec) * nanosecondsPerSecond + now.tv_nsec;
}

void clockWait(std::int64_t nanoseconds) {
    if (nanoseconds <= 0) {
        return;
    }
    timespec remaining{};
    remaining.tv_sec = static_cast<time_t>(nanoseconds / nanosecondsPerSecond);
    remaining.tv_nsec = static_cast<long>(nanoseconds % nanosecondsPerSecond);
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &remaining, &remaining) == EINTR) {
    }
}
