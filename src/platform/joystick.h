// The first joystick of the machine: axes, hat and buttons. Called by the polling. A hat moves the axes too,
// since the D-pad of most pads is one. A joystick that is unplugged answers with JOYERR_UNPLUGGED until one
// is plugged in again.
#pragma once

#include "platform/types.h"

using MMRESULT = UINT;

constexpr MMRESULT JOYERR_NOERROR = 0;
constexpr MMRESULT JOYERR_PARMS = 165;
constexpr MMRESULT JOYERR_UNPLUGGED = 167;

// Reaches the window with the focus (DispatchMessageA passes it over when none has it) when a button went
// down or up or the stick was pushed another way, so that a loop that waits for a message wakes. wParam holds
// the buttons as in JOYINFO. Only while the joystick is being read by somebody.
constexpr UINT MM_JOY1MOVE = 0x03A0;

struct JOYINFO {
    UINT wXpos; // 0 left to 65535 right
    UINT wYpos; // 0 up to 65535 down
    UINT wZpos;
    UINT wButtons; // bit n: button n is down, the first 32
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

// Reads the device afresh. JOYERR_NOERROR and the state; JOYERR_PARMS for a joystick other than 0 or a null
// or wrongly sized record, JOYERR_UNPLUGGED without a joystick, both with the record as it was. joyGetPosEx
// is the probe: it fills the same values as joyGetPos whatever dwFlags says.
MMRESULT joyGetPos(UINT joystick, JOYINFO* info);
MMRESULT joyGetPosEx(UINT joystick, JOYINFOEX* info);

// Name, axis limits (0 and 65535) and number of buttons. The same errors; `size` is that of the record.
MMRESULT joyGetDevCapsA(std::uintptr_t joystick, JOYCAPSA* capabilities, UINT size);
