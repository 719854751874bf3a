// Names of keys and joystick controls for messages to the player, by the codes of the settings.
#pragma once

#include <string>

// Returns the name of the key with this virtual-key code, for example "2", "F1" or "Space"; empty when the
// code stands for no key.
std::string keyName(int code);

// Returns the name of the joystick button with this code of joyPressed, for example "joystick button 6";
// empty when the code stands for no button.
std::string joystickControlName(int code);
