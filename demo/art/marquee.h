// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the lit sign above a cabinet's screen. Called for the marquee folder and by the picture of a
// cabinet.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0), whose shape should be a little wider than 3:1.
void paintMarquee(cairo_t* context, const GameLook& look, double width, double height);
