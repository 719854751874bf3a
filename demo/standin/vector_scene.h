// SPDX-License-Identifier: GPL-3.0-or-later
// The scene of a game with a vector display: glowing lines on black, in the colours of the game. Called by
// drawScene only. Keeps no state.
#pragma once

#include "standin/pixel_canvas.h"
#include "standin/scene_moment.h"

#include <cairo.h>

#include <cstdint>

void drawVectorScene(cairo_t* context, std::uint32_t seed, Colour colour, const SceneMoment& moment,
                     double width, double height);
