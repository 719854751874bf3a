// The box for failures that end something: title "Error", one OK button. Called by whatever has no other way
// to report. Failures that a player can see through have the message window instead.
#pragma once

#include "platform/types.h"

// Returns when the box has been left. owner may be null.
void showError(HWND owner, const char* text);
