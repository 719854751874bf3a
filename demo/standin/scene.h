// SPDX-License-Identifier: GPL-3.0-or-later
// The animated scene of a running game. Its kind, colours and creatures depend on the game's name and
// display. Called by the game window for each frame, and for snapshots and movies of the demonstration
// cabinet. Keeps no state: the picture depends on the arguments only.
#pragma once

#include "games.h"
#include "standin/pixel_canvas.h"
#include "standin/scene_moment.h"

#include <cairo.h>

// Draws the scene over the area from (0, 0) to (width, height) of the context.
void drawScene(cairo_t* context, const DemoGame& game, const SceneMoment& moment, double width,
               double height);

// The same at the resolution of the canvas; with `titled` the upper half stays free for the title. Not for a
// game with a vector display.
void drawPixelScene(PixelCanvas& canvas, const DemoGame& game, const SceneMoment& moment, bool titled);

// Enlarges a canvas to the area from (0, 0), without smoothing.
void paintEnlarged(cairo_t* context, PixelCanvas& canvas, double width, double height);
