// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the cabinet of a game in a dark arcade: marquee, screen, controls and side art. Called for the
// cabinet folder and for the flyers.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0), whose shape should be 2:3. `tube` is the picture on the cabinet's screen.
void paintCabinet(cairo_t* context, const DemoGame& game, const GameLook& look, const Picture& tube,
                  double width, double height);
