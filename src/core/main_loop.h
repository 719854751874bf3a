// The loop that serves window messages and
// the tick, ten times a second, until a
// quit arrives. Called by the entry.
#pragma once

// The exit code that the quit carries; -1, after a message box, when the machine has no performance counter.
// Ticks that a stall has held up are made up for, back to back, before the loop sleeps again.
int runMainLoop();
