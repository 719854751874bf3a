// The state of a single key or joystick code; the front end reads all its input through these functions.
// Called by mapped_controls.cpp and the commands with the codes of the settings. Input is not queued,
// repeated or cached here.
#pragma once

// Returns 1 when the key with this virtual-key code is down or has been pressed since the previous call for
// the same code, else 0. Always 0 while no window of this program has the focus; the press is then kept.
int keyPressed(int code);

// Returns 1 when the joystick control with this code is active, else 0. Codes: 1, 2, 4 ... 512 for each of
// ten buttons, active when it is the only button down; 200 right, 201 left, 202 down, 203 up. Any other code
// is never active. Each call reads the device, whichever window has the focus.
int joyPressed(int code);

// Detects the joystick and reads its axis ranges. Called once at program start; a joystick connected later is
// not detected.
void initJoystick();

// Discards the recorded presses of all keys. Keys that are held down stay down.
void flushKeys();
