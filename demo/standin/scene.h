// The moving picture behind a game's title: which kind of scene it is, its colours and its creatures follow
// from the game's name and display. Called by the game window for each frame. A scene keeps no state:
// everything follows from the moment that is passed in.
#pragma once

#include "games.h"

#include <cairo.h>

struct SceneMoment {
    double seconds; // since the game began
    double playerX; // -1 left to 1 right
    double playerY; // -1 up to 1 down
};

// Draws the scene over the area from (0, 0) to (width, height) of the context.
void drawScene(cairo_t* context, const DemoGame& game, const SceneMoment& moment, double width,
               double height);
