// SPDX-License-Identifier: GPL-3.0-or-later
// Attract play: shows random games, with their movies, while nobody uses the controls. Called by WinMain and
// the tick; writes selectedIndex and gameBeforeAttractPlay. With IdleSeconds=0 no function does anything.
// Time spent in a popup, a message or a game does not count as idle, because all of them begin with a control
// and end within its tick.
#pragma once

#include "platform/types.h"

// Starts measuring the idle time. Called once, before the main loop.
void startAttractPlay();

// Called at the begin of a tick; returns true when the tick ends there. During attract play every tick does:
// it picks the next game every IdleStep seconds, and the first touch of a control stops it. After that, ticks
// end there until all controls are released, so that the touch has no other effect. Without the focus no game
// is picked, since another program may be on the screen.
bool attractPlayTakesTick(HWND window);

// Starts attract play with the first pick when no control has been used for IdleSeconds and a game is
// visible. Called at the end of a tick, after the controls were polled.
void startAttractPlayWhenIdle(HWND window);
