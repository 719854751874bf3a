// SPDX-License-Identifier: GPL-3.0-or-later
// Screen contents of a game at its native resolution: a moment of play, and the title screen. Called for the
// folders of snapshots and titles, and for flyers and cabinets, which show the screen.
#pragma once

#include "art/game_look.h"

// The screen at `seconds` after the start of the game.
Picture snapshotOf(const DemoGame& game, double seconds);

Picture titleScreenOf(const DemoGame& game, const GameLook& look);
