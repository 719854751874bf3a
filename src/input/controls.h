// The state of one key or joystick code at a time, the only way in which the front end reads its controls.
// Called by the tick and the overlay loops with the codes of the settings. Nothing is queued, repeated or
// cached here.
#pragma once

// 1 when the key of a virtual-key code is down, or was pressed since it was last asked for, while a window of
// this program has the focus; else 0. Asking forgets the press.
int keyPressed(int code);

// 1 when a joystick code reads as pressed, else 0. 1, 2, 4 ... 512: exactly this one of ten buttons is down;
// 200 right, 201 left, 202 down, 203 up; any other code never. The device is read at each call, whoever has
// the focus.
int joyPressed(int code);

// Looks for the joystick and its limits. Once, at start-up: one that is plugged in later is not noticed.
void initJoystick();

// Forgets the presses of all keys. Keys that are held stay down.
void flushKeys();
