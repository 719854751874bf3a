// State of the keyboard by virtual-key code, and synthesised keys. Called
// by the polling and the process runner. Keys reach it as events of the
// display; key messages for windows are made from the same events.
#pragma once

#include "platform/key_codes.h"
#include "platform/types.h"

constexpr DWORD KEYEVENTF_KEYUP = 0x0002;

// The sign bit: the key is down now. Bit 0: it was pressed since the last call for this code; the call clears
// it. The display's own repeats of a held key do not count as presses. VK_SHIFT, VK_CONTROL and VK_MENU stand
// for either of their two keys. 0 for a code outside 1 to 254. A tap that is over when it is told of here is
// followed by a WM_NULL, since its key messages may have been served: a loop that acts on the press and then
// waits for a message must not wait for the next key.
SHORT GetAsyncKeyState(int code);

// Sends a key press, or with KEYEVENTF_KEYUP a release, to whatever window of the display has the keyboard
// focus, also another program's. scanCode and extraInformation are not used. Only letters, digits and the
// codes above are known; any other code, and a display without synthesised keys (all but X11), has no effect.
void keybd_event(BYTE code, BYTE scanCode, DWORD flags, std::uintptr_t extraInformation);
