// The creature of a game, as the pixels of the running game
// have it, painted as an illustrator would: round, inked,
// with a face. Called for marquees, flyers and cabinets.
#pragma once

#include "art/game_look.h"

// Stands with its feet on the point. `size` is its height; `facing` -1 looks left, 1 right. Different numbers
// give different creatures of the same game; 0 is the hero.
void paintCreature(cairo_t* context, const GameLook& look, int number, Point feet, double size, int facing);
