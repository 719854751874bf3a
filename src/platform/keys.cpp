#include "platform/keys.h"

#include "platform/display.h"
#include "platform/key_map.h"
#include "platform/key_state.h"

SHORT GetAsyncKeyState(int code) {
    displayKeepAlive();
    constexpr int downBit = -0x8000;
    constexpr int pressedBit = 1;
    return static_cast<SHORT>((keyIsDown(code) ? downBit : 0) | (takeKeyPress(code) ? pressedBit : 0));
}

void keybd_event(BYTE code, BYTE, DWORD flags, std::uintptr_t) {
    displaySendKey(keySymbolOf(code), (flags & KEYEVENTF_KEYUP) == 0);
}
