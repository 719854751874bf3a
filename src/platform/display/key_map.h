// SPDX-License-Identifier: GPL-3.0-or-later
// Maps between virtual-key codes and the codes of the same keys in SDL and X11. Inside the platform only:
// called where key events arrive and where keys are synthesised.
#pragma once

#include <cstdint>

struct SDL_Keysym;

// Returns the virtual-key code of an SDL key, or 0 when there is none. Letters are mapped by keyboard layout,
// all other keys by position.
int virtualKeyOf(const SDL_Keysym& key);

// Returns the X11 key symbol of a virtual-key code, or 0 when there is none.
std::uint32_t keySymbolOf(int code);
