// SPDX-License-Identifier: GPL-3.0-or-later
// Names of keys and joystick controls by their codes, for texts that the user reads. Called by whatever shows
// which control does what. Knows nothing of the settings.
#pragma once

#include <string>

// Returns the name of the key with a virtual-key code, as on an English keyboard: "A", "Left arrow", "Keypad
// 5". Empty for a code that no key has.
std::string keyName(int code);

// Returns the name of a joystick control: "Button 1" to "Button 10", "Stick right" and so on. Empty for any
// other code.
std::string joystickName(int code);
