// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/main_loop.h"

#include "app/tick_clock.h"
#include "app/window_state.h"
#include "core/commands.h"
#include "platform/clock.h"
#include "platform/messages.h"

int runMainLoop() {
    TickClock clock(mainWindow);
    if (!clock.isRunning()) {
        return -1;
    }
    for (;;) {
        MSG message{};
        if (PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!GetMessageA(&message, nullptr, 0, 0)) {
                return static_cast<int>(message.wParam);
            }
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (clock.isDue()) {
            handleTick(mainWindow);
            clock.advance();
        } else {
            Sleep(1);
        }
    }
}
