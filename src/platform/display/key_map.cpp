// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display/key_map.h"

#include "platform/display/key_state.h"
#include "platform/key_codes.h"

#include <SDL_keyboard.h>
#include <X11/keysym.h>

#include <algorithm>
#include <iterator>

namespace {

struct KeyName {
    int code;
    SDL_Scancode scancode;
    std::uint32_t symbol;
};

constexpr KeyName keyNames[] = {
    {VK_BACK, SDL_SCANCODE_BACKSPACE, XK_BackSpace},
    {VK_TAB, SDL_SCANCODE_TAB, XK_Tab},
    {VK_RETURN, SDL_SCANCODE_RETURN, XK_Return},
    {VK_RETURN, SDL_SCANCODE_KP_ENTER, XK_KP_Enter},
    {VK_LSHIFT, SDL_SCANCODE_LSHIFT, XK_Shift_L},
    {VK_RSHIFT, SDL_SCANCODE_RSHIFT, XK_Shift_R},
    {VK_LCONTROL, SDL_SCANCODE_LCTRL, XK_Control_L},
    {VK_RCONTROL, SDL_SCANCODE_RCTRL, XK_Control_R},
    {VK_LMENU, SDL_SCANCODE_LALT, XK_Alt_L},
    {VK_RMENU, SDL_SCANCODE_RALT, XK_Alt_R},
    {VK_PAUSE, SDL_SCANCODE_PAUSE, XK_Pause},
    {VK_CAPITAL, SDL_SCANCODE_CAPSLOCK, XK_Caps_Lock},
    {VK_ESCAPE, SDL_SCANCODE_ESCAPE, XK_Escape},
    {VK_SPACE, SDL_SCANCODE_SPACE, XK_space},
    {VK_PRIOR, SDL_SCANCODE_PAGEUP, XK_Page_Up},
    {VK_NEXT, SDL_SCANCODE_PAGEDOWN, XK_Page_Down},
    {VK_END, SDL_SCANCODE_END, XK_End},
    {VK_HOME, SDL_SCANCODE_HOME, XK_Home},
    {VK_LEFT, SDL_SCANCODE_LEFT, XK_Left},
    {VK_UP, SDL_SCANCODE_UP, XK_Up},
    {VK_RIGHT, SDL_SCANCODE_RIGHT, XK_Right},
    {VK_DOWN, SDL_SCANCODE_DOWN, XK_Down},
    {VK_SNAPSHOT, SDL_SCANCODE_PRINTSCREEN, XK_Print},
    {VK_INSERT, SDL_SCANCODE_INSERT, XK_Insert},
    {VK_DELETE, SDL_SCANCODE_DELETE, XK_Delete},
    {VK_LWIN, SDL_SCANCODE_LGUI, XK_Super_L},
    {VK_RWIN, SDL_SCANCODE_RGUI, XK_Super_R},
    {VK_APPS, SDL_SCANCODE_APPLICATION, XK_Menu},
    {VK_MULTIPLY, SDL_SCANCODE_KP_MULTIPLY, XK_KP_Multiply},
    {VK_ADD, SDL_SCANCODE_KP_PLUS, XK_KP_Add},
    {VK_SUBTRACT, SDL_SCANCODE_KP_MINUS, XK_KP_Subtract},
    {VK_DECIMAL, SDL_SCANCODE_KP_PERIOD, XK_KP_Decimal},
    {VK_DIVIDE, SDL_SCANCODE_KP_DIVIDE, XK_KP_Divide},
    {VK_NUMLOCK, SDL_SCANCODE_NUMLOCKCLEAR, XK_Num_Lock},
    {VK_SCROLL, SDL_SCANCODE_SCROLLLOCK, XK_Scroll_Lock},
    {VK_OEM_1, SDL_SCANCODE_SEMICOLON, XK_semicolon},
    {VK_OEM_PLUS, SDL_SCANCODE_EQUALS, XK_equal},
    {VK_OEM_COMMA, SDL_SCANCODE_COMMA, XK_comma},
    {VK_OEM_MINUS, SDL_SCANCODE_MINUS, XK_minus},
    {VK_OEM_PERIOD, SDL_SCANCODE_PERIOD, XK_period},
    {VK_OEM_2, SDL_SCANCODE_SLASH, XK_slash},
    {VK_OEM_3, SDL_SCANCODE_GRAVE, XK_grave},
    {VK_OEM_4, SDL_SCANCODE_LEFTBRACKET, XK_bracketleft},
    {VK_OEM_5, SDL_SCANCODE_BACKSLASH, XK_backslash},
    {VK_OEM_6, SDL_SCANCODE_RIGHTBRACKET, XK_bracketright},
    {VK_OEM_7, SDL_SCANCODE_APOSTROPHE, XK_apostrophe},
    {VK_OEM_102, SDL_SCANCODE_NONUSBACKSLASH, XK_less},
};

// A range of keys with consecutive virtual-key codes, SDL scancodes and X11 symbols.
struct KeyRange {
    int code;
    SDL_Scancode scancode;
    std::uint32_t symbol;
    int count;
};

constexpr KeyRange keyRanges[] = {
    {'A', SDL_SCANCODE_A, XK_a, 26},
    {'1', SDL_SCANCODE_1, XK_1, 9},
    {'0', SDL_SCANCODE_0, XK_0, 1},
    {VK_NUMPAD1, SDL_SCANCODE_KP_1, XK_KP_1, 9},
    {VK_NUMPAD0, SDL_SCANCODE_KP_0, XK_KP_0, 1},
    {VK_F1, SDL_SCANCODE_F1, XK_F1, 12},
    {VK_F13, SDL_SCANCODE_F13, XK_F13, 12},
};

} // namespace

int virtualKeyOf(const SDL_Keysym& key) {
    if (key.sym >= SDLK_a && key.sym <= SDLK_z) {
        return 'A' + (key.sym - SDLK_a);
    }
    const auto name = std::find_if(std::begin(keyNames), std::end(keyNames),
                                   [&](const KeyName& entry) { return entry.scancode == key.scancode; });
    if (name != std::end(keyNames)) {
        return name->code;
    }
    for (const KeyRange& range : keyRanges) {
        if (key.scancode >= range.scancode && key.scancode < range.scancode + range.count) {
            return range.code + (key.scancode - range.scancode);
        }
    }
    return 0;
}

std::uint32_t keySymbolOf(int code) {
    for (const KeyRange& range : keyRanges) {
        if (code >= range.code && code < range.code + range.count) {
            return range.symbol + static_cast<std::uint32_t>(code - range.code);
        }
    }
    const auto name = std::find_if(std::begin(keyNames), std::end(keyNames), [&](const KeyName& entry) {
        return entry.code == code || commonKeyCode(entry.code) == code;
    });
    return name != std::end(keyNames) ? name->symbol : 0;
}
