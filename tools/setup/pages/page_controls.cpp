// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/page_controls.h"

#include "app/window_state.h"
#include "input/controls.h"
#include "platform/clock.h"
#include "platform/keys.h"

#include <array>

namespace {

constexpr std::int64_t repeatDelay = 400; // milliseconds, like the next one
constexpr std::int64_t repeatPeriod = 100;

struct PageControl {
    PageKey key;
    std::array<int, 2> keyCodes; // 0: none
    int joystickCode;            // 0: none
    bool repeats;
};

constexpr std::array<PageControl, 9> pageControls = {{
    {PageKey::up, {VK_UP, 0}, 203, true},
    {PageKey::down, {VK_DOWN, 0}, 202, true},
    {PageKey::left, {VK_LEFT, 0}, 201, true},
    {PageKey::right, {VK_RIGHT, 0}, 200, true},
    {PageKey::pageUp, {VK_PRIOR, 0}, 0, true},
    {PageKey::pageDown, {VK_NEXT, 0}, 0, true},
    {PageKey::choose, {VK_RETURN, '1'}, 1, false},
    {PageKey::back, {VK_ESCAPE, VK_BACK}, 2, false},
    {PageKey::clear, {VK_DELETE, 0}, 0, false},
}};

struct ControlState {
    bool joystickHeld = false;
    std::int64_t nextRepeat = 0; // 0: not held since a press that acted
};

std::array<ControlState, pageControls.size()> states;

// Returns whether the control has been pressed, and sets whether it is held.
bool takePress(const PageControl& control, ControlState& state, bool& held) {
    bool pressed = false;
    for (const int code : control.keyCodes) {
        const SHORT key = GetAsyncKeyState(code);
        pressed = pressed || (key & 1) != 0;
        held = held || key < 0;
    }
    const bool joystick = control.joystickCode != 0 && joyPressed(control.joystickCode) != 0;
    pressed = pressed || (joystick && !state.joystickHeld);
    held = held || joystick;
    state.joystickHeld = joystick;
    return pressed && appActive != 0;
}

bool acts(const PageControl& control, ControlState& state, std::int64_t now) {
    bool held = false;
    if (takePress(control, state, held)) {
        state.nextRepeat = now + repeatDelay;
        return true;
    }
    if (!held) {
        state.nextRepeat = 0;
    }
    if (!control.repeats || state.nextRepeat == 0 || now < state.nextRepeat) {
        return false;
    }
    state.nextRepeat = now + repeatPeriod;
    return true;
}

} // namespace

PageKey pollPageKey() {
    initJoystick(); // it may have been plugged in or unplugged
    const std::int64_t now = pageMilliseconds();
    for (std::size_t index = 0; index < pageControls.size(); ++index) {
        if (acts(pageControls[index], states[index], now)) {
            return pageControls[index].key;
        }
    }
    return PageKey::none;
}

void flushPageKeys() {
    flushKeys();
    initJoystick();
    for (std::size_t index = 0; index < pageControls.size(); ++index) {
        const int code = pageControls[index].joystickCode;
        states[index] = {code != 0 && joyPressed(code) != 0, 0};
    }
}

std::int64_t pageMilliseconds() {
    LARGE_INTEGER now{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    constexpr std::int64_t perSecond = 1000;
    return now.QuadPart / (frequency.QuadPart / perSecond);
}
