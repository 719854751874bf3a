// SPDX-License-Identifier: GPL-3.0-or-later
// The state of a single key or joystick code; the front end reads all its input through these functions.
// Called by mapped_controls.cpp with the codes of the settings. Input is not queued, repeated or cached here.
#pragma once

#include "platform/joystick.h"

#include <cstdint>
#include <optional>

// Incremented whenever readKey, keyPressed or joyPressed reports a control as active.
extern std::uint32_t controlUses;

struct KeyReading {
    bool active = false;  // down now, or pressed since the previous reading of the same code
    bool pressed = false; // pressed since then
};

// Reads a key. Nothing is active while no window of this program has the focus; the press is then kept.
KeyReading readKey(int code);

// Reads a key; returns 1 when it is active, else 0.
int keyPressed(int code);

// Returns 1 when the joystick control with this code is active, else 0. Codes: 1, 2, 4 ... 512 for each of
// ten buttons, active when it is the only button down; 200 right, 201 left, 202 down, 203 up. Any other code
// is never active. Each call reads the device, whichever window has the focus.
int joyPressed(int code);

// Reads the joystick once, for a look at several codes. None when there is no joystick or it is not used.
std::optional<JOYINFO> readJoystick();
bool isJoystickCodeActive(int code, const JOYINFO& info);

// Detects the joystick and reads its axis ranges. Called at program start; a joystick connected later is not
// detected without another call.
void initJoystick();

// Hook of joyPressed, null by default: called before a reading while no joystick is detected, with false, and
// after a failed reading, with true.
extern void (*joystickMissing)(bool lost);

// Discards the recorded presses of all keys. Keys that are held down stay down.
void flushKeys();

// Hook of flushKeys, null by default: called for each key that is up, or whose press has been discarded.
extern void (*keyFlushed)(int code);
