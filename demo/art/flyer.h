// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the advertising flyer of a game: logo, hero, photographs and slogans on paper. Called for the flyer
// folder. Writes no files.
#pragma once

#include "art/game_look.h"

struct FlyerPhotos {
    const Picture& play; // two moments of the game
    const Picture& laterPlay;
    const Picture& cabinet;
};

// Covers the area from (0, 0), whose shape should be 3:4.
void paintFlyer(cairo_t* context, const GameLook& look, const FlyerPhotos& photos, double width,
                double height);
