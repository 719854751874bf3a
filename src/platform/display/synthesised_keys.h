// Key events that other programs of the X11
// display take for real ones. Inside the
// platform only: called by the display.
#pragma once

#include <cstdint>

// Presses or releases the key that bears the X11 key symbol, for the window that has the focus. Without an
// X11 display, or without the key, nothing happens.
void sendKeyToFocus(std::uint32_t keySymbol, bool down);
