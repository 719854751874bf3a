// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a creature of a game in the style of an illustration, with the shape that the running game draws in
// pixels. Called for marquees, flyers and cabinets.
#pragma once

#include "art/game_look.h"

// `feet` is the point between its feet, `size` its height; `facing` is -1 for left, 1 for right. `number`
// selects one of the game's creatures; 0 is the hero.
void paintCreature(cairo_t* context, const GameLook& look, int number, Point feet, double size, int facing);
