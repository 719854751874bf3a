// Keeps the screen alive while the program's thread waits. Called by every wait of the platform except the
// message polls. The display registers the function that does so; this module does not depend on the display.
#pragma once

#include <cstdint>

// Registers the function that shows changes and handles the display's events. It returns true while pictures
// move. Until it is registered, waits only let time pass.
void setKeepAlive(bool (*function)());

// Calls that function, for a wait whose end is not a moment in time. Returns true while pictures move; it
// then has to be called every 10 ms, otherwise every 20 to 50 ms.
bool keepAlive();

// Waits for at least the given time, then keeps the screen alive. Returns the result of keepAlive().
bool waitAndKeepAlive(std::int64_t nanoseconds);
