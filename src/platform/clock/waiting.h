// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the screen alive while the program's thread waits. Called by every wait of the platform except the
// message polls. The display registers the function that does so; this module does not depend on the display.
#pragma once

#include <cstdint>

// Registers the function that shows changes and handles the display's events. It returns true while pictures
// move. Until it is registered, waits only let time pass.
void setKeepAlive(bool (*function)());

// Registers the function with which a sleep waits for input: it returns true at the first input within the
// given nanoseconds, at once when a message is queued, and handles the display's events meanwhile.
void setInputWait(bool (*function)(std::int64_t nanoseconds));

// Waits for at least the given time, or until there is input. Returns whether there was any.
bool waitForInput(std::int64_t nanoseconds);

// Calls the function of setKeepAlive, for a wait whose end is not a moment in time, and returns free memory
// when the program rests. Returns true while pictures move; it then has to be called every 10 ms, otherwise
// every 20 to 50 ms.
bool keepAlive();

// Waits for at least the given time, then keeps the screen alive. Returns the result of keepAlive().
bool waitAndKeepAlive(std::int64_t nanoseconds);
