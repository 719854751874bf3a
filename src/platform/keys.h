// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the keyboard by virtual-key code, and synthesised keys. Called by the input polling and the
// process runner. The state follows the display's key events, from which the key messages in messages.h are
// also made.
#pragma once

#include "platform/key_codes.h"
#include "platform/types.h"

constexpr DWORD KEYEVENTF_KEYUP = 0x0002;

// Sign bit: the key is down now. Bit 0: it was pressed since the last call for this code; the call clears it.
// Auto-repeats of a held key do not count as presses. VK_SHIFT, VK_CONTROL and VK_MENU cover both keys of
// their kind. 0 for a code outside 1 to 254. When the press reported here has already been released, a
// WM_NULL is queued: its key messages may have been handled, and a loop that acts on the press and then waits
// for a message must not block until the next key.
SHORT GetAsyncKeyState(int code);

// Number of the key's last press, counted over all keys from 1, while GetAsyncKeyState has not reported that
// press yet; else 0. Neither changes the press nor counts as work of a loop that polls for messages.
std::uint32_t unreadKeyPress(int code);

// Number of key presses and of changes of the joystick since the start. Auto-repeats do not count.
std::uint32_t inputCount();

// Sends a key press, or a release with KEYEVENTF_KEYUP, to the window of the display that has the keyboard
// focus, including windows of other programs. Only letters, digits and the codes in key_codes.h are known;
// another code, or a display other than X11, has no effect. scanCode and extraInformation are ignored.
void keybd_event(BYTE code, BYTE scanCode, DWORD flags, std::uintptr_t extraInformation);
