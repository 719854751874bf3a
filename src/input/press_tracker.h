// SPDX-License-Identifier: GPL-3.0-or-later
// Distinguishes new presses from controls that are held, for the extras that decide which of them act in a
// tick. mapped_controls.cpp passes every reading through filterReading; without a filter nothing is tracked
// and every active control acts.
#pragma once

#include "config/settings.h"
#include "input/controls.h"

#include <cstdint>

// A control that was active when it was polled.
struct ActiveControl {
    std::int32_t Settings::*key; // the setting of its key identifies the control, per player
    bool isNew;                  // the press has begun since the control was last polled
};

// Returns whether the control acts in this tick.
using ControlFilter = bool (*)(const ActiveControl& control);

// Adds a filter, or removes it. A control acts when every filter agrees.
void useControlFilter(ControlFilter filter, bool used);

// The result of one poll. joystick is null for a control without a joystick code.
struct ControlReading {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick;
    KeyReading keyReading;
    bool joystickActive; // false, without a reading, while the key is active
};

// Returns whether the control acts. A press is new when its key was pressed since the previous poll, or when
// the control was not active then. A control that was not polled for a second counts as released.
bool filterReading(const ControlReading& reading);

// Returns whether any control that has been polled before has a new press that no poll has read yet. Reads no
// press of a key, so the next poll of the control finds it. Each press is found once. Cheap unless a key or
// the joystick has changed since the previous call. Works only while there is a filter.
bool findUnreadPress();
