// Events of the display as SDL delivers the real ones, for
// tests that play a person. Called by every test that presses
// keys. They are seen when the display is looked at next.
#pragma once

#include <SDL.h>

inline void pushEvent(Uint32 type) {
    SDL_Event event{};
    event.type = type;
    SDL_PushEvent(&event);
}

inline void pushWindowEvent(SDL_WindowEventID kind) {
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.event = static_cast<Uint8>(kind);
    SDL_PushEvent(&event);
}

inline void pushKeyEvent(SDL_Scancode place, bool down, Uint8 repeat = 0) {
    SDL_Event event{};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.repeat = repeat;
    event.key.keysym.scancode = place;
    event.key.keysym.sym = SDL_GetKeyFromScancode(place);
    SDL_PushEvent(&event);
}

inline void pressKey(SDL_Scancode place) {
    pushKeyEvent(place, true);
}

inline void releaseKey(SDL_Scancode place) {
    pushKeyEvent(place, false);
}
