// Which keys are down and which were pressed since somebody last
// asked, by virtual-key code. Inside the platform only: the
// display reports, the key operations and the message box ask.
#pragma once

// A key went down or up; the code names the left or right key where there are two. Codes outside 1 to 254 are
// ignored.
void keyChanged(int code, bool down);

// Every key is up: the keyboard has been lost.
void allKeysUp();

bool keyIsDown(int code);

// Whether the key was pressed since the last call for this code.
bool takeKeyPress(int code);

// The code that messages and key mappings use: VK_SHIFT for either shift key, and so on.
int commonKeyCode(int code);
