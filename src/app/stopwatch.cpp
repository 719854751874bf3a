// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/stopwatch.h"

#include "platform/clock.h"

namespace {

std::int64_t now() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER counter{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    // Seconds and rest separately: the product of a counter and a thousand may exceed 64 bits.
    return counter.QuadPart / frequency.QuadPart * millisecondsPerSecond +
           counter.QuadPart % frequency.QuadPart * millisecondsPerSecond / frequency.QuadPart;
}

} // namespace

void Stopwatch::restart() {
    start_ = now();
}

std::int64_t Stopwatch::milliseconds() const {
    return now() - start_;
}
