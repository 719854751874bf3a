// Where time comes from. Called by the platform's clock and waits
// only. One of two files is linked: the machine's steady clock, or
// virtual time, which stands still except while somebody waits.
#pragma once

#include <cstdint>

constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

// Nanoseconds since some fixed moment, never going back. Negative when the machine has no steady clock.
std::int64_t clockNow();

// Returns after at least the given nanoseconds; at once for 0 or less.
void clockWait(std::int64_t nanoseconds);
