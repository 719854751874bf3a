// SPDX-License-Identifier: GPL-3.0-or-later
// Replaces a function of the C library in the whole process. libmpv before 0.37 and SDL wait until a time of
// day. When the clock is set back by an hour in such a wait, as by a time server, movies and tracks would
// stand still for an hour.
#include <pthread.h>

#include <algorithm>
#include <cstdint>
#include <ctime>

namespace {

constexpr std::int64_t second = 1'000'000'000;

// A step may come before the wait begins, which is then far too long. Longer waits are those of idle threads,
// which look around and wait again.
constexpr std::int64_t longestWait = 10 * second;

std::int64_t nanosecondsOf(const timespec& time) {
    return time.tv_sec * second + time.tv_nsec;
}

std::int64_t read(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return nanosecondsOf(now);
}

// Whether the condition's waits end at a time of CLOCK_MONOTONIC. glibc notes that here.
bool isSteady(const pthread_cond_t* condition) {
    return (condition->__data.__wrefs & 2U) != 0;
}

} // namespace

// Converts the end, so that only a step before this line matters.
extern "C" int pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                      const timespec* end) {
    if (isSteady(condition)) {
        return pthread_cond_clockwait(condition, mutex, CLOCK_MONOTONIC, end);
    }
    const std::int64_t left = std::min(nanosecondsOf(*end) - read(CLOCK_REALTIME), longestWait);
    const std::int64_t steadyEnd = read(CLOCK_MONOTONIC) + left;
    const timespec wake{steadyEnd / second, steadyEnd % second};
    return pthread_cond_clockwait(condition, mutex, CLOCK_MONOTONIC, &wake);
}
