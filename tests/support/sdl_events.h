// SPDX-License-Identifier: GPL-3.0-or-later
// Pushes display events into SDL's queue, as the real display does, for tests that simulate a player. The
// events are processed when the platform next polls the display.
#pragma once

#include <SDL.h>

inline void pushEvent(Uint32 type) {
    SDL_Event event{};
    event.type = type;
    SDL_PushEvent(&event);
}

inline void pushWindowEvent(SDL_WindowEventID type) {
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.event = static_cast<Uint8>(type);
    SDL_PushEvent(&event);
}

inline void pushKeyEvent(SDL_Scancode scancode, bool down, Uint8 repeat = 0) {
    SDL_Event event{};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.repeat = repeat;
    event.key.keysym.scancode = scancode;
    event.key.keysym.sym = SDL_GetKeyFromScancode(scancode);
    SDL_PushEvent(&event);
}

inline void pressKey(SDL_Scancode scancode) {
    pushKeyEvent(scancode, true);
}

inline void releaseKey(SDL_Scancode scancode) {
    pushKeyEvent(scancode, false);
}
