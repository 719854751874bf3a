// SPDX-License-Identifier: GPL-3.0-or-later
// The message box for fatal errors and for programs that cannot be started: title "Error", one OK button.
// Other messages to the player use overlays/message_window.h, which does not wait for a key.
#pragma once

#include "platform/types.h"

// Returns when the box has been closed. owner may be null.
void showError(HWND owner, const char* text);
