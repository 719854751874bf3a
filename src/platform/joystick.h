// SPDX-License-Identifier: GPL-3.0-or-later
// The first joystick of the machine: axes, hats and buttons. Called by the polling of the controls. A hat
// moves the X and Y axes too, since the D-pad of most pads is a hat. An unplugged joystick returns
// JOYERR_UNPLUGGED until a joystick is plugged in again.
#pragma once

#include "platform/types.h"

using MMRESULT = UINT;

constexpr MMRESULT JOYERR_NOERROR = 0;
constexpr MMRESULT JOYERR_PARMS = 165;
constexpr MMRESULT JOYERR_UNPLUGGED = 167;

// Posted to the window with the focus when a button changes or the stick is pushed in another direction, so
// that a loop waiting for a message wakes up. Without a focused window DispatchMessageA ignores it. wParam
// holds the buttons as in JOYINFO. Posted only once the joystick has been read.
constexpr UINT MM_JOY1MOVE = 0x03A0;

struct JOYINFO {
    UINT wXpos; // 0 left to 65535 right
    UINT wYpos; // 0 up to 65535 down
    UINT wZpos;
    UINT wButtons; // bit n is set while button n is down; first 32 buttons
};

struct JOYINFOEX {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwXpos;
    DWORD dwYpos;
    DWORD dwZpos;
    DWORD dwRpos;
    DWORD dwUpos;
    DWORD dwVpos;
    DWORD dwButtons;
    DWORD dwButtonNumber;
    DWORD dwPOV;
    DWORD dwReserved1;
    DWORD dwReserved2;
};
static_assert(sizeof(JOYINFOEX) == 52);

struct JOYCAPSA {
    WORD wMid;
    WORD wPid;
    char szPname[32];
    UINT wXmin;
    UINT wXmax;
    UINT wYmin;
    UINT wYmax;
    UINT wZmin;
    UINT wZmax;
    UINT wNumButtons;
    UINT wPeriodMin;
    UINT wPeriodMax;
    UINT wRmin;
    UINT wRmax;
    UINT wUmin;
    UINT wUmax;
    UINT wVmin;
    UINT wVmax;
    UINT wCaps;
    UINT wMaxAxes;
    UINT wNumAxes;
    UINT wMaxButtons;
    char szRegKey[32];
    char szOEMVxD[260];
};
static_assert(sizeof(JOYCAPSA) == 404);

// Read the current state of the device. Return JOYERR_NOERROR, JOYERR_PARMS for a joystick other than 0, a
// null record or a wrong dwSize, or JOYERR_UNPLUGGED without a joystick. On failure the record is unchanged.
// joyGetPosEx fills the same values as joyGetPos whatever dwFlags is; it is called to detect the joystick.
MMRESULT joyGetPos(UINT joystick, JOYINFO* info);
MMRESULT joyGetPosEx(UINT joystick, JOYINFOEX* info);

// Fills the name, the axis limits (0 and 65535) and the number of buttons; all other members are 0. `size` is
// the size of the record. Returns the same errors.
MMRESULT joyGetDevCapsA(std::uintptr_t joystick, JOYCAPSA* capabilities, UINT size);
