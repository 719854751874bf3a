// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/controls.h"

#include "app/window_state.h"
#include "config/settings.h"
#include "platform/diagnostics.h"
#include "platform/keys.h"

#include <cstdint>

std::uint32_t controlUses = 0;

namespace {

// Set by initJoystick.
std::int32_t joystickPresent = 0;
std::uint32_t joyXMin = 0;
std::uint32_t joyXMax = 0;
std::uint32_t joyYMin = 0;
std::uint32_t joyYMax = 0;

// Of GetAsyncKeyState; the sign bit is set while the key is down.
constexpr int pressedBit = 1;

// Distance from the end of an axis within which it counts as pushed, as a fraction of the axis maximum.
constexpr double axisMargin = 0.2;

bool axisHigh(double position, double max) {
    return position >= max - axisMargin * max;
}

bool axisLow(double position, double min, double max) {
    return position <= min + axisMargin * max;
}

// Counts a control that is used; returns whether it is.
bool noteUse(bool isUsed) {
    controlUses += isUsed ? 1 : 0;
    return isUsed;
}

bool isButtonCode(int code) {
    constexpr int lastButton = 512;
    return code > 0 && code <= lastButton && (code & (code - 1)) == 0;
}

} // namespace

void (*keyFlushed)(int code) = nullptr;

void (*joystickMissing)(bool lost) = nullptr;

bool isJoystickCodeActive(int code, const JOYINFO& info) {
    switch (code) {
    case 200:
        return axisHigh(info.wXpos, joyXMax);
    case 201:
        return axisLow(info.wXpos, joyXMin, joyXMax);
    case 202:
        return axisHigh(info.wYpos, joyYMax);
    case 203:
        return axisLow(info.wYpos, joyYMin, joyYMax);
    default:
        return isButtonCode(code) && info.wButtons == static_cast<UINT>(code);
    }
}

KeyReading readKey(int code) {
    if (!appActive) {
        return {};
    }
    const SHORT state = GetAsyncKeyState(code);
    return {noteUse(state != 0), (state & pressedBit) != 0};
}

int keyPressed(int code) {
    return readKey(code).active ? 1 : 0;
}

std::optional<JOYINFO> readJoystick() {
    JOYINFO info{};
    if (!settings.useJoystick || !joystickPresent || joyGetPos(0, &info) != JOYERR_NOERROR) {
        return std::nullopt;
    }
    return info;
}

int joyPressed(int code) {
    if (settings.useJoystick && !joystickPresent && joystickMissing) {
        joystickMissing(false);
    }
    if (!settings.useJoystick || !joystickPresent) {
        return 0;
    }
    JOYINFO info{};
    if (joyGetPos(0, &info) != JOYERR_NOERROR) {
        writeDiagnostic(standardOutput, "Error reading joystick!");
        if (joystickMissing) {
            joystickMissing(true);
        }
        return 0;
    }
    return noteUse(isJoystickCodeActive(code, info)) ? 1 : 0;
}

void initJoystick() {
    JOYINFOEX probe{};
    probe.dwSize = sizeof(probe);
    joystickPresent = joyGetPosEx(0, &probe) == JOYERR_NOERROR ? 1 : 0;
    JOYCAPSA capabilities{};
    joyGetDevCapsA(0, &capabilities, sizeof(capabilities));
    joyXMin = capabilities.wXmin;
    joyXMax = capabilities.wXmax;
    joyYMin = capabilities.wYmin;
    joyYMax = capabilities.wYmax;
}

void flushKeys() {
    for (int code = 0; code < 255; ++code) {
        const SHORT state = GetAsyncKeyState(code);
        if (keyFlushed && (state >= 0 || (state & pressedBit) != 0)) {
            keyFlushed(code);
        }
    }
}
