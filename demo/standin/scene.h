// The moving picture behind a game's title: which kind of scene it is, its colours and its creatures follow
// from the game's name and display. Called by the game window for each frame, and for the snapshots of the
// art. A scene keeps no state:
// everything follows from the moment that is passed in.
#pragma once

#include "games.h"
#include "standin/pixel_canvas.h"

#include <cairo.h>

struct SceneMoment {
    double seconds; // since the game began
    double playerX; // -1 left to 1 right
    double playerY; // -1 up to 1 down
};

// Draws the scene over the area from (0, 0) to (width, height) of the context.
void drawScene(cairo_t* context, const DemoGame& game, const SceneMoment& moment, double width,
               double height);

// The same at the resolution of the canvas; `titled` leaves the upper half to the lettering. Not for a game
// on a vector tube.
void drawPixelScene(PixelCanvas& canvas, const DemoGame& game, const SceneMoment& moment, bool titled);

// Puts a canvas on the area from (0, 0), each of its pixels as a sharp block.
void paintEnlarged(cairo_t* context, PixelCanvas& canvas, double width, double height);
