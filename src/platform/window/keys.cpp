// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/keys.h"

#include "platform/clock/fruitless_polls.h"
#include "platform/display/display.h"
#include "platform/display/key_map.h"
#include "platform/display/key_state.h"
#include "platform/window/message_queue.h"

SHORT GetAsyncKeyState(int code) {
    noteWorkBetweenPolls();
    displayKeepAlive();
    constexpr int downBit = -0x8000;
    constexpr int pressedBit = 1;
    const bool down = keyIsDown(code);
    const bool pressed = takeKeyPress(code);
    if (pressed && !down) {
        queueWakeUp();
    }
    return static_cast<SHORT>((down ? downBit : 0) | (pressed ? pressedBit : 0));
}

std::uint32_t unreadKeyPress(int code) {
    return untakenPress(code);
}

std::uint32_t inputCount() {
    return displayInputCount();
}

void keybd_event(BYTE code, BYTE, DWORD flags, std::uintptr_t) {
    displaySendKey(keySymbolOf(code), (flags & KEYEVENTF_KEYUP) == 0);
}
