// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/control_names.h"

#include "platform/key_codes.h"

#include <algorithm>
#include <iterator>

namespace {

struct ControlName {
    int code;
    const char* name;
};

constexpr ControlName keyNames[] = {
    {VK_BACK, "Backspace"},
    {VK_TAB, "Tab"},
    {VK_RETURN, "Enter"},
    {VK_SHIFT, "Shift"},
    {VK_CONTROL, "Ctrl"},
    {VK_MENU, "Alt"},
    {VK_PAUSE, "Pause"},
    {VK_CAPITAL, "Caps Lock"},
    {VK_ESCAPE, "Escape"},
    {VK_SPACE, "Space"},
    {VK_PRIOR, "Page Up"},
    {VK_NEXT, "Page Down"},
    {VK_END, "End"},
    {VK_HOME, "Home"},
    {VK_LEFT, "Left arrow"},
    {VK_UP, "Up arrow"},
    {VK_RIGHT, "Right arrow"},
    {VK_DOWN, "Down arrow"},
    {VK_SNAPSHOT, "Print Screen"},
    {VK_INSERT, "Insert"},
    {VK_DELETE, "Delete"},
    {VK_LWIN, "Left Windows"},
    {VK_RWIN, "Right Windows"},
    {VK_APPS, "Menu"},
    {VK_MULTIPLY, "Keypad *"},
    {VK_ADD, "Keypad +"},
    {VK_SUBTRACT, "Keypad -"},
    {VK_DECIMAL, "Keypad ."},
    {VK_DIVIDE, "Keypad /"},
    {VK_NUMLOCK, "Num Lock"},
    {VK_SCROLL, "Scroll Lock"},
    {VK_LSHIFT, "Left Shift"},
    {VK_RSHIFT, "Right Shift"},
    {VK_LCONTROL, "Left Ctrl"},
    {VK_RCONTROL, "Right Ctrl"},
    {VK_LMENU, "Left Alt"},
    {VK_RMENU, "Right Alt"},
    {VK_OEM_1, ";"},
    {VK_OEM_PLUS, "="},
    {VK_OEM_COMMA, ","},
    {VK_OEM_MINUS, "-"},
    {VK_OEM_PERIOD, "."},
    {VK_OEM_2, "/"},
    {VK_OEM_3, "`"},
    {VK_OEM_4, "["},
    {VK_OEM_5, "\\"},
    {VK_OEM_6, "]"},
    {VK_OEM_7, "'"},
    {VK_OEM_102, "<"},
};

constexpr ControlName stickNames[] = {
    {200, "Stick right"},
    {201, "Stick left"},
    {202, "Stick down"},
    {203, "Stick up"},
};

template <std::size_t count> const char* findName(const ControlName (&names)[count], int code) {
    const auto* found = std::ranges::find(names, code, &ControlName::code);
    return found == std::end(names) ? "" : found->name;
}

} // namespace

std::string keyName(int code) {
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9')) {
        return {static_cast<char>(code)};
    }
    if (code >= VK_NUMPAD0 && code < VK_NUMPAD0 + 10) {
        return "Keypad " + std::to_string(code - VK_NUMPAD0);
    }
    if (code >= VK_F1 && code < VK_F1 + 24) {
        return "F" + std::to_string(code - VK_F1 + 1);
    }
    return findName(keyNames, code);
}

std::string joystickName(int code) {
    for (int button = 0; button < 10; ++button) {
        if (code == 1 << button) {
            return "Button " + std::to_string(button + 1);
        }
    }
    return findName(stickNames, code);
}
