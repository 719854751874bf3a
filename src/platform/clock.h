// SPDX-License-Identifier: GPL-3.0-or-later
// The performance counter and Sleep. Called by every loop and delay. The time itself comes from
// clock/clock_source.h, which has two implementations: the machine's clock, and a virtual clock for tests.
#pragma once

#include "platform/types.h"

// The counts per second and the current count. Both return TRUE, or FALSE on a machine without a monotonic
// clock.
BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);
BOOL QueryPerformanceCounter(LARGE_INTEGER* counter);

// Pauses for at least the given time. A duration other than 0 is raised to at least 20 ms, or 10 ms while
// pictures move, or 50 ms when no control is in use; in that case the first input ends it, as below. The
// display is kept alive meanwhile: changes are shown and its events are handled, but no message is
// dispatched. Once the program has been asked to end, the pause ends after at most one such interval.
void Sleep(DWORD milliseconds);

// With true, the minimum is 25 ms instead of 20, and a pause that was raised to it ends at the first key
// press, change of the joystick or queued message, but not before the time that was asked for. Off at the
// start.
void setSleepWakesOnInput(bool wakes);
