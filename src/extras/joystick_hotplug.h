// SPDX-License-Identifier: GPL-3.0-or-later
// The extra JoystickHotplug: detects a joystick that is plugged in after the start, and forgets one that has
// been unplugged.
#pragma once

// Called once after the settings are loaded.
void startJoystickHotplug();
