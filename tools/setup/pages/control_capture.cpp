// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/control_capture.h"

#include "app/window_state.h"
#include "input/controls.h"
#include "platform/keys.h"
#include "setup/pages/page_controls.h"
#include "setup/pages/page_window.h"

#include <array>

namespace {

constexpr std::array<int, 14> joystickCodes = {1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 200, 201, 202, 203};

// Mouse buttons have the codes below; they are no keys.
constexpr int firstKey = 8;
constexpr int lastKey = 254;

int pressedKey() {
    int pressed = 0;
    for (int code = firstKey; code <= lastKey; ++code) {
        const bool isCommon = code >= VK_SHIFT && code <= VK_MENU;
        if ((GetAsyncKeyState(code) & 1) != 0 && !isCommon && pressed == 0) {
            pressed = code;
        }
    }
    return appActive ? pressed : 0;
}

int activeJoystickControl() {
    initJoystick();
    for (const int code : joystickCodes) {
        if (joyPressed(code)) {
            return code;
        }
    }
    return 0;
}

} // namespace

CapturedControl captureControl(bool withJoystick, std::int64_t limit,
                               const std::function<void(std::int64_t)>& everyPoll) {
    flushPageKeys();
    bool isReleased = false;
    const std::int64_t end = pageMilliseconds() + limit;
    CapturedControl captured;
    while (captured.code == 0 && servePageWindow() && pageMilliseconds() < end) {
        const int joystick = withJoystick ? activeJoystickControl() : 0;
        if (const int key = pressedKey(); key != 0) {
            captured = {key, false};
        } else if (joystick != 0 && isReleased) {
            captured = {joystick, true};
        }
        isReleased = isReleased || joystick == 0;
        if (everyPoll && captured.code == 0) {
            everyPoll(end - pageMilliseconds());
        }
    }
    flushPageKeys();
    return captured;
}
