// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/focus.h"

#include "platform/messages.h"

namespace {

HWND active = nullptr;
HWND focused = nullptr;
bool displayFocused = false;

} // namespace

void setDisplayFocus(bool hasFocus) {
    displayFocused = hasFocus;
}

void activateWindow(HWND handle) {
    active = handle;
    sendFocusChange();
}

void deactivateWindow(const Window& window) {
    if (active == window.handle) {
        const Window* owner = findWindow(window.owner);
        activateWindow(owner && owner->visible && !owner->destroying ? window.owner : nullptr);
    }
}

void sendFocusChange() {
    const HWND wanted = displayFocused && findWindow(active) ? active : nullptr;
    if (wanted == focused) {
        return;
    }
    const HWND previous = focused;
    focused = wanted;
    sendMessage(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(wanted), 0);
    sendMessage(wanted, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
}

HWND focusWindow() {
    return findWindow(focused) ? focused : nullptr;
}
