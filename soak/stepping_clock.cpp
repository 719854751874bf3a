// SPDX-License-Identifier: GPL-3.0-or-later
// A library for LD_PRELOAD, with which the time of day steps twice a second, by up to ten years in both
// directions, as on a machine without a battery that finds a time server. Clocks that only measure time are
// as they were, and so is the kernel's idea of the time of day, so that a wait for one may last for years.
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>
#include <iterator>

namespace {

constexpr std::int64_t second = 1'000'000'000;
constexpr std::int64_t interval = second / 2; // from one step to the next
constexpr std::int64_t day = 86400 * second;
constexpr std::int64_t offsets[] = {0, day, -3600 * second, 3600 * day, -3600 * day, second, -day};

timespec timeOf(std::int64_t nanoseconds) {
    return {nanoseconds / second, nanoseconds % second};
}

std::int64_t readClock(clockid_t clock) {
    timespec now{};
    syscall(SYS_clock_gettime, clock, &now);
    return now.tv_sec * second + now.tv_nsec;
}

// The time of day with the steps.
std::int64_t timeOfDay() {
    const auto step = static_cast<std::size_t>(readClock(CLOCK_MONOTONIC) / interval);
    return readClock(CLOCK_REALTIME) + offsets[step % std::size(offsets)];
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* result) noexcept {
    if (clock != CLOCK_REALTIME && clock != CLOCK_REALTIME_COARSE) {
        return static_cast<int>(syscall(SYS_clock_gettime, clock, result));
    }
    *result = timeOf(timeOfDay());
    return 0;
}

int gettimeofday(timeval* result, void*) noexcept {
    const timespec now = timeOf(timeOfDay());
    *result = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}

time_t time(time_t* result) noexcept {
    const time_t now = timeOf(timeOfDay()).tv_sec;
    if (result) {
        *result = now;
    }
    return now;
}
}
