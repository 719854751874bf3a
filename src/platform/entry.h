// SPDX-License-Identifier: GPL-3.0-or-later
// The entry point of the application, which defines WinMain. Called by the process entry and by tests that
// run the whole front end.
#pragma once

#include "platform/types.h"

// Runs the front end until it ends and returns the exit code of the process. commandTail must stay valid that
// long; previous and showCommand are ignored.
int WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandTail, int showCommand);
