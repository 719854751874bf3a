// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers for the tests of the set-up's pages on virtual time.
#pragma once

#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/virtual_clock.h"
#include "support/sdl_events.h"

inline void tapAt(std::int64_t time, SDL_Scancode key, std::int64_t held = 10) {
    virtualClockAt(time, [key] { pressKey(key); });
    virtualClockAt(time + held, [key] { releaseKey(key); });
}

inline std::uint32_t pixelAt(int x, int y) {
    const ScreenPixels screen = screenPixels();
    return screen.pixels[y * screen.stride + x];
}

// The end of a window leaves a message that would end the next one.
inline void forgetFormerWindow() {
    for (MSG message{}; PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);) {
        GetMessageA(&message, nullptr, 0, 0);
    }
}
