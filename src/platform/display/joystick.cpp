// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/joystick.h"

#include "platform/clock/fruitless_polls.h"

#include <SDL.h>

#include <algorithm>
#include <memory>

namespace {

constexpr UINT axisMin = 0;
constexpr UINT axisMax = 65535;
constexpr UINT axisCentre = 32767;

struct CloseJoystick {
    void operator()(SDL_Joystick* joystick) const { SDL_JoystickClose(joystick); }
};

std::unique_ptr<SDL_Joystick, CloseJoystick> opened;

bool startJoysticks() {
    if (SDL_WasInit(SDL_INIT_JOYSTICK) != 0) {
        return true;
    }
    static bool failed = false;
    if (!failed) {
        // The kernel's drivers report a D-pad as a hat; SDL's HIDAPI drivers would report it as buttons.
        SDL_SetHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        failed = SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0;
    }
    return !failed;
}

// Returns the joystick with its state updated, or null when none is plugged in.
SDL_Joystick* currentJoystick() {
    if (!startJoysticks()) {
        return nullptr;
    }
    SDL_JoystickUpdate();
    if (opened && SDL_JoystickGetAttached(opened.get()) == SDL_FALSE) {
        opened.reset();
    }
    if (!opened && SDL_NumJoysticks() > 0) {
        opened.reset(SDL_JoystickOpen(0));
        SDL_JoystickUpdate();
    }
    return opened.get();
}

UINT axisPosition(SDL_Joystick* joystick, int axis) {
    if (axis >= SDL_JoystickNumAxes(joystick)) {
        return axisCentre;
    }
    constexpr int axisOffset = 32768;
    return static_cast<UINT>(SDL_JoystickGetAxis(joystick, axis) + axisOffset);
}

// A hat that is pushed overrides the stick; a centred one leaves the axis to it.
UINT withHat(UINT position, bool low, bool high) {
    if (low != high) {
        return low ? axisMin : axisMax;
    }
    return position;
}

UINT pressedButtons(SDL_Joystick* joystick) {
    UINT mask = 0;
    const int count = std::min(SDL_JoystickNumButtons(joystick), 32);
    for (int button = 0; button < count; ++button) {
        mask |= SDL_JoystickGetButton(joystick, button) != 0 ? UINT{1} << button : 0;
    }
    return mask;
}

} // namespace

MMRESULT joyGetPos(UINT joystick, JOYINFO* info) {
    if (joystick != 0 || !info) {
        return JOYERR_PARMS;
    }
    noteWorkBetweenPolls();
    SDL_Joystick* device = currentJoystick();
    if (!device) {
        return JOYERR_UNPLUGGED;
    }
    Uint8 hat = SDL_HAT_CENTERED;
    for (int index = 0; index < SDL_JoystickNumHats(device); ++index) {
        hat |= SDL_JoystickGetHat(device, index);
    }
    info->wXpos = withHat(axisPosition(device, 0), (hat & SDL_HAT_LEFT) != 0, (hat & SDL_HAT_RIGHT) != 0);
    info->wYpos = withHat(axisPosition(device, 1), (hat & SDL_HAT_UP) != 0, (hat & SDL_HAT_DOWN) != 0);
    info->wZpos = axisPosition(device, 2);
    info->wButtons = pressedButtons(device);
    return JOYERR_NOERROR;
}

MMRESULT joyGetPosEx(UINT joystick, JOYINFOEX* info) {
    if (!info || info->dwSize != sizeof(JOYINFOEX)) {
        return JOYERR_PARMS;
    }
    JOYINFO position{};
    const MMRESULT result = joyGetPos(joystick, &position);
    if (result == JOYERR_NOERROR) {
        info->dwXpos = position.wXpos;
        info->dwYpos = position.wYpos;
        info->dwZpos = position.wZpos;
        info->dwButtons = position.wButtons;
    }
    return result;
}

MMRESULT joyGetDevCapsA(std::uintptr_t joystick, JOYCAPSA* capabilities, UINT size) {
    if (joystick != 0 || !capabilities || size != sizeof(JOYCAPSA)) {
        return JOYERR_PARMS;
    }
    SDL_Joystick* device = currentJoystick();
    if (!device) {
        return JOYERR_UNPLUGGED;
    }
    *capabilities = {};
    if (const char* name = SDL_JoystickName(device)) {
        SDL_strlcpy(capabilities->szPname, name, sizeof(capabilities->szPname));
    }
    capabilities->wXmin = capabilities->wYmin = capabilities->wZmin = axisMin;
    capabilities->wXmax = capabilities->wYmax = capabilities->wZmax = axisMax;
    capabilities->wNumButtons = static_cast<UINT>(SDL_JoystickNumButtons(device));
    return JOYERR_NOERROR;
}
