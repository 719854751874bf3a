// Virtual-key codes and the names that SDL and X11 have for the
// same keys, as one table. Inside the platform only: called
// where key events come in and where keys are synthesised.
#pragma once

#include <cstdint>

struct SDL_Keysym;

// The virtual-key code of a key of SDL: letters by what the layout prints on them, everything else by place.
// 0 when there is none.
int virtualKeyOf(const SDL_Keysym& key);

// The X11 key symbol of a virtual-key code; 0 when there is none.
std::uint32_t keySymbolOf(int code);
