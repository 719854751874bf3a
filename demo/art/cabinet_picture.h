// A game's cabinet in an arcade at night: its marquee,
// its tube, its controls and the painting on its side.
// Called for the cabinet folder and for the flyers.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0), two wide and three high. `tube` is what the screen shows.
void paintCabinet(cairo_t* context, const DemoGame& game, const GameLook& look, const Picture& tube,
                  double width, double height);
