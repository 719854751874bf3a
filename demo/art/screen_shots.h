// What the tube of a game shows, pixel by pixel at its own resolution:
// a moment of play, and the title screen. Called for the folders of
// snapshots and titles, and for the pictures that show a tube.
#pragma once

#include "art/game_look.h"

// `seconds` into the game.
Picture snapshotOf(const DemoGame& game, double seconds);

Picture titleScreenOf(const DemoGame& game, const GameLook& look);
