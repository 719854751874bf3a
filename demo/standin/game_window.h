// SPDX-License-Identifier: GPL-3.0-or-later
// The full-screen window of a running game: shows its scene, reacts to keys, and ends on Escape, on a signal
// or a close by the window system, or after a given time. Called once by the stand-in's main program. No
// sound.
#pragma once

#include "games.h"
#include "standin/options.h"

enum class GameEnd { finished, terminated, noDisplay };

// Blocks until the game ends; without a time in the options the player ends it. Returns noDisplay at once.
GameEnd playInWindow(const DemoGame& game, const StandinOptions& options);
