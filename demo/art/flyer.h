// The printed sheet with which a maker offered a game to the
// arcades: lettering, hero, small pictures and promises on
// paper. Called for the flyer folder. It knows nothing of files.
#pragma once

#include "art/game_look.h"

struct FlyerPhotos {
    const Picture& play; // two moments of the game
    const Picture& laterPlay;
    const Picture& cabinet;
};

// Covers the area from (0, 0), three wide and four high.
void paintFlyer(cairo_t* context, const GameLook& look, const FlyerPhotos& photos, double width,
                double height);
