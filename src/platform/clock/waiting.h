// What the program's thread does while it waits: it keeps the screen alive. Called by every wait of the
// platform that is not a look at the messages. The display registers here how that is done; nothing here
// knows the display.
#pragma once

#include <cstdint>

// Registers the function that shows what has changed and handles the display's events. It returns true while
// pictures move. Before the first call, waits only pass time.
void setKeepAlive(bool (*function)());

// Calls that function, for a wait for something else than time. True while pictures move; it then has to be
// called every 10 ms, else every 20 to 50.
bool keepAlive();

// Waits for at least the given nanoseconds, then keeps the screen alive, and returns what that did.
bool waitAndKeepAlive(std::int64_t nanoseconds);
