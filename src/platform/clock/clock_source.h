// SPDX-License-Identifier: GPL-3.0-or-later
// The time source of the platform. Called only by the platform's clock and waits. Each build links one of two
// implementations: real_clock.cpp, the machine's monotonic clock, or virtual_clock.cpp, a virtual time that
// advances only inside waits and when a test advances it.
#pragma once

#include <cstdint>

constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

// Nanoseconds since an arbitrary fixed moment; never decreases. Negative when the machine has no monotonic
// clock.
std::int64_t clockNow();

// Returns after at least the given nanoseconds; at once for 0 or less.
void clockWait(std::int64_t nanoseconds);
