// SPDX-License-Identifier: GPL-3.0-or-later
// Control of virtual time, in builds that link virtual_clock.cpp: schedules actions at moments of that time
// and advances it. Called by tests only; the program runs as in real time.
#pragma once

#include <cstdint>
#include <functional>

// Schedules an action for a moment of virtual time, in milliseconds since its start. The action runs inside
// the wait that reaches the moment. Actions of the same moment run in the order in which they were scheduled;
// an action for a past moment runs in the next wait.
void virtualClockAt(std::int64_t milliseconds, std::function<void()> action);

// Virtual time in milliseconds since its start.
std::int64_t virtualClockMilliseconds();

// Advances virtual time without a wait, for the time that a computation is assumed to take. Runs no actions.
void virtualClockAdvance(std::int64_t milliseconds);
