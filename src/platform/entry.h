// The application as the platform starts it. The application
// defines WinMain; the process entry, and tests that run the
// whole front end, call it. Nothing else belongs here.
#pragma once

#include "platform/types.h"

// Runs the front end to its end and gives the exit code of the process. commandTail is kept as it is, for the
// whole run; previous and showCommand are not used.
int WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandTail, int showCommand);
