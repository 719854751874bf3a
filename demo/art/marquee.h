// The lit sign above a cabinet's screen.
// Called for the marquee folder and for
// the pictures that show a cabinet.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0), which is a little more than three times as wide as high.
void paintMarquee(cairo_t* context, const GameLook& look, double width, double height);
