// Control of virtual time, in builds that link virtual_clock.cpp:
// what happens when, and how late it is. Called by tests only; the
// program never sees that its time is not real.
#pragma once

#include <cstdint>
#include <functional>

// Runs an action at a moment of virtual time, in milliseconds since the start of time, from inside the wait
// that passes it. Actions of one moment run in the order given. A moment that has passed runs in the next
// wait.
void virtualClockAt(std::int64_t milliseconds, std::function<void()> action);

// Milliseconds that have passed.
std::int64_t virtualClockMilliseconds();

// Moves time without a wait, for the time that a computation is said to take.
void virtualClockAdvance(std::int64_t milliseconds);
