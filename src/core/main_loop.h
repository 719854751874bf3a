// SPDX-License-Identifier: GPL-3.0-or-later
// The main loop: dispatches window messages and calls the tick ten times a second until WM_QUIT arrives.
// Called once by WinMain.
#pragma once

// Returns the exit code of the WM_QUIT message; -1, after a message box, when the machine has no performance
// counter. Ticks delayed by a stall are executed back to back before the loop sleeps again.
int runMainLoop();
