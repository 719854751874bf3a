// SPDX-License-Identifier: GPL-3.0-or-later
// Synthesised key events, which other programs on the X11 display cannot distinguish from real ones. Called
// by the display only.
#pragma once

#include <cstdint>

// Presses or releases the key of an X11 key symbol for the window that has the focus. No effect without an
// X11 display or when no key has the symbol.
void sendKeyToFocus(std::uint32_t keySymbol, bool down);
