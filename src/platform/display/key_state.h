// SPDX-License-Identifier: GPL-3.0-or-later
// The state of every key by virtual-key code: whether it is down, and whether it was pressed since the last
// query. Inside the platform only: updated by the display, read by the key operations and the message box.
#pragma once

#include <cstdint>

// Records that a key went down or up. The code is that of the left or right key where there are two. Codes
// outside 1 to 254 are ignored.
void keyChanged(int code, bool down);

// Marks every key as up: the keyboard focus has been lost.
void allKeysUp();

bool keyIsDown(int code);

bool anyKeyIsDown();

// Returns whether the key was pressed since the last call for this code.
bool takeKeyPress(int code);

// Returns the number of the press that takeKeyPress would report, counted over all keys from 1; 0 for none.
std::uint32_t untakenPress(int code);

// Returns the code that messages and key mappings use: VK_SHIFT for either shift key, and so on.
int commonKeyCode(int code);
