// The full-screen window of a running game: shows its scene, answers
// its keys, and ends on Escape, on a request of the system, or after a
// time. Called once by the stand-in's main program. It makes no sound.
#pragma once

#include "games.h"
#include "standin/options.h"

enum class GameEnd { Finished, Terminated, NoDisplay };

// Blocks until the game is over; without a time in the options that is up to the player. NoDisplay comes back
// at once.
GameEnd playInWindow(const DemoGame& game, const StandinOptions& options);
