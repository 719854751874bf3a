// The painted backgrounds of the art: one kind of landscape for each word of `Scenery`, in the colours of a
// game. Called for marquees, flyers, side art and title screens. Nothing moves here; the moving scenes of the
// running games stand in standin/scene.h.
#pragma once

#include "art/game_look.h"

// Covers the area from (0, 0). Any shape from a wide strip to an upright page.
void paintScenery(cairo_t* context, const GameLook& look, double width, double height);
