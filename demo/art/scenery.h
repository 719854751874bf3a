// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the backgrounds of the art: a landscape for each enumerator of `Scenery`, in the colours of a game.
// Called for marquees, flyers, side art and title screens. The animated scenes of running games are in
// standin/scene.h.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0). Any shape from a wide strip to an upright page.
void paintScenery(cairo_t* context, const GameLook& look, double width, double height);
