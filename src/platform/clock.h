// The performance counter and Sleep. Called by every loop and
// delay. The time itself comes from clock_source.h, of which the
// build has two: the machine's clock, and a virtual one for tests.
#pragma once

#include "platform/types.h"

// Counts per second, and the counter. Both give TRUE; FALSE on a machine without a steady clock.
BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);
BOOL QueryPerformanceCounter(LARGE_INTEGER* counter);

// Gives up the processor for at least the given milliseconds, and unless they are 0 for no less than 20, or
// 10 while pictures move. Meanwhile the screen stays alive: what has changed is shown, the display's events
// are drained, no message is dispatched. A program that has been asked to end sleeps no longer than a moment.
void Sleep(DWORD milliseconds);
