// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the screen alive while the program's thread waits. Called by every wait of the platform except the
// message polls. The display registers the function that does so; this module does not depend on the display.
#pragma once

#include <cstdint>

// How soon the display wants to be kept alive again.
enum class Pace {
    moving,  // pictures move: after 10 ms
    waiting, // after 20 ms
    resting, // after 50 ms, or at the first input: no control is in use, and input ends waitForInput at once
};

// Registers the function that shows changes and handles the display's events. Until it is registered, waits
// only let time pass.
void setKeepAlive(Pace (*function)());

// Registers the function with which a sleep waits for input: it returns true at the first input within the
// given nanoseconds, at once when a message is queued, and handles the display's events meanwhile.
void setInputWait(bool (*function)(std::int64_t nanoseconds));

// Waits for at least the given time, or until there is input. Returns whether there was any.
bool waitForInput(std::int64_t nanoseconds);

// Calls the function of setKeepAlive, for a wait whose end is not a moment in time, and returns free memory
// when the program rests. A wait with an interval of its own, of at most 50 ms, may ignore the result.
Pace keepAlive();

// Waits for at least the given time, then keeps the screen alive. Returns the result of keepAlive().
Pace waitAndKeepAlive(std::int64_t nanoseconds);
