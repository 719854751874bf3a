#include "extras/key_names.h"

#include "platform/key_codes.h"

#include <algorithm>
#include <bit>

namespace {

struct NamedKey {
    int code;
    const char* name;
};

// Punctuation keys have the characters of a US keyboard.
constexpr NamedKey namedKeys[] = {
    {VK_BACK, "Backspace"},
    {VK_TAB, "Tab"},
    {VK_RETURN, "Enter"},
    {VK_SHIFT, "Shift"},
    {VK_CONTROL, "Ctrl"},
    {VK_MENU, "Alt"},
    {VK_PAUSE, "Pause"},
    {VK_CAPITAL, "Caps Lock"},
    {VK_ESCAPE, "Esc"},
    {VK_SPACE, "Space"},
    {VK_PRIOR, "Page Up"},
    {VK_NEXT, "Page Down"},
    {VK_END, "End"},
    {VK_HOME, "Home"},
    {VK_LEFT, "Left Arrow"},
    {VK_UP, "Up Arrow"},
    {VK_RIGHT, "Right Arrow"},
    {VK_DOWN, "Down Arrow"},
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

bool isWithin(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

} // namespace

std::string keyName(int code) {
    if (isWithin(code, '0', '9') || isWithin(code, 'A', 'Z')) {
        return {static_cast<char>(code)};
    }
    if (isWithin(code, VK_NUMPAD0, VK_NUMPAD0 + 9)) {
        return "Keypad " + std::to_string(code - VK_NUMPAD0);
    }
    if (isWithin(code, VK_F1, VK_F1 + 23)) {
        return "F" + std::to_string(code - VK_F1 + 1);
    }
    const auto* named = std::ranges::find(namedKeys, code, &NamedKey::code);
    return named != std::end(namedKeys) ? named->name : "";
}

std::string joystickControlName(int code) {
    constexpr int lastButton = 512;
    if (!isWithin(code, 1, lastButton) || !std::has_single_bit(static_cast<unsigned>(code))) {
        return {};
    }
    return "joystick button " + std::to_string(std::countr_zero(static_cast<unsigned>(code)) + 1);
}
