// SPDX-License-Identifier: GPL-3.0-or-later
// The video mode of the screen while a program that may change it has the display. Called by the display
// only. No effect on a display other than X11 or without its extension RANDR.
#pragma once

// Notes the modes of all monitors and the size of the screen.
void noteVideoMode();

// Restores what noteVideoMode noted and the program has left changed, for example because it was killed.
// Monitors that have been disconnected stay off.
void restoreVideoMode();
