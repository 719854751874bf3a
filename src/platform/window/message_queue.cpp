// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/message_queue.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/display/key_state.h"
#include "platform/joystick.h"
#include "platform/window/focus.h"

#include <algorithm>
#include <deque>
#include <optional>

namespace {

// Limits the presses that accumulate while a game runs. The oldest are dropped.
constexpr std::size_t mostInputMessages = 256;

// The parts of a key message's lParam.
constexpr LPARAM repeatCountMask = 0xFFFF;
constexpr LPARAM wasDownBit = LPARAM{1} << 30;
constexpr LPARAM releasedBit = LPARAM{1} << 31;

std::deque<MSG> input;
std::optional<int> quitCode;

// The part of the joystick's state whose changes queue a message. Small movements of a stick do not.
struct JoystickState {
    UINT buttons = 0;
    int horizontal = 0; // -1 left, 1 right
    int vertical = 0;
    bool operator==(const JoystickState&) const = default;
};
JoystickState lastQueuedJoystick;

MSG makeMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    return {handle, message, wParam, lParam, static_cast<DWORD>(clockNow() / nanosecondsPerMillisecond),
            {0, 0}};
}

HWND windowToPaint() {
    const auto found = std::find_if(windowOrder().rbegin(), windowOrder().rend(), [](HWND handle) {
        const Window* window = findWindow(handle);
        return window->visible && window->invalid;
    });
    return found != windowOrder().rend() ? *found : nullptr;
}

bool isKeyMessage(const MSG& message, HWND handle, WPARAM code) {
    return (message.message == WM_KEYDOWN || message.message == WM_KEYUP) && message.hwnd == handle &&
           message.wParam == code;
}

bool isRepeat(const MSG& message) {
    return message.message == WM_KEYDOWN && (message.lParam & wasDownBit) != 0;
}

MSG frontOf(std::deque<MSG>& queue, bool take) {
    const MSG message = queue.front();
    if (take) {
        queue.pop_front();
    }
    return message;
}

int directionOf(UINT position) {
    constexpr UINT nearLow = 65535 / 5;
    constexpr UINT nearHigh = 65535 - nearLow;
    return position <= nearLow ? -1 : position >= nearHigh ? 1 : 0;
}

void addInput(const MSG& message) {
    if (input.size() == mostInputMessages) {
        input.pop_front();
    }
    input.push_back(message);
}

// Replaces a queued message of the same kind.
void replaceInput(const MSG& message) {
    std::erase_if(input, [&](const MSG& other) { return other.message == message.message; });
    addInput(message);
}

// Adds a repeat to the count of the key's queued repeat message. False when the last queued message of the
// key is not a repeat.
bool mergeRepeat(HWND handle, WPARAM code) {
    const auto last = std::find_if(input.rbegin(), input.rend(),
                                   [&](const MSG& message) { return isKeyMessage(message, handle, code); });
    if (last == input.rend() || !isRepeat(*last)) {
        return false;
    }
    if ((last->lParam & repeatCountMask) < repeatCountMask) {
        ++last->lParam;
    }
    return true;
}

} // namespace

void queueKey(int code, bool down, bool repeat) {
    const HWND target = focusWindow();
    if (!target) {
        return;
    }
    const auto common = static_cast<WPARAM>(commonKeyCode(code));
    if (repeat && mergeRepeat(target, common)) {
        return;
    }
    const LPARAM state = 1 | (repeat || !down ? wasDownBit : 0) | (down ? 0 : releasedBit);
    addInput(makeMessage(target, down ? WM_KEYDOWN : WM_KEYUP, common, state));
}

void queueJoystick() {
    JOYINFO info{};
    if (joyGetPos(0, &info) != JOYERR_NOERROR) {
        return;
    }
    const JoystickState state{info.wButtons, directionOf(info.wXpos), directionOf(info.wYpos)};
    if (state == lastQueuedJoystick) {
        return;
    }
    lastQueuedJoystick = state;
    replaceInput(makeMessage(focusWindow(), MM_JOY1MOVE, state.buttons, 0));
}

void queueWakeUp() {
    replaceInput(makeMessage(focusWindow(), WM_NULL, 0, 0));
}

void dropMessagesOf(HWND handle) {
    const auto isOfWindow = [&](const MSG& message) { return message.hwnd == handle; };
    std::erase_if(input, isOfWindow);
}

void queueQuit(int exitCode) {
    quitCode = exitCode;
}

std::optional<MSG> nextMessage(bool take) {
    // Not removed when taken: a popup's loop drops the message that ends it, so WM_CLOSE is returned again
    // until the main window is destroyed.
    if (const HWND toClose = endRequested() ? mainWindowOfProgram() : nullptr) {
        return makeMessage(toClose, WM_CLOSE, 0, 0);
    }
    if (quitCode) { // before input, or the key that caused the quit would act again
        const MSG message = makeMessage(nullptr, WM_QUIT, static_cast<WPARAM>(*quitCode), 0);
        if (take) {
            quitCode.reset();
        }
        return message;
    }
    if (!input.empty() && !isRepeat(input.front())) {
        return frontOf(input, take);
    }
    // Before the repeats of a held key: if a redraw takes longer than the repeat interval, the repeats would
    // delay it until the key is released.
    if (const HWND handle = windowToPaint()) {
        return makeMessage(handle, WM_PAINT, 0, 0);
    }
    if (!input.empty()) {
        return frontOf(input, take);
    }
    return std::nullopt;
}
