// The scene of a game on a vector tube: glowing lines over
// a black screen, in the colours of the game. Called by
// drawScene only. It keeps nothing between two pictures.
#pragma once

#include "standin/pixel_canvas.h"
#include "standin/scene.h"

void drawVectorScene(cairo_t* context, std::uint32_t seed, Colour colour, const SceneMoment& moment,
                     double width, double height);
