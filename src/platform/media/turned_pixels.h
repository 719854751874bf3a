// Turns the pictures of a movie by a quarter. Used by the players.
#pragma once

#include "platform/drawing/surface.h"

#include <cstdint>

// True for 90 and -90 degrees, which swap width and height.
bool swapsSides(int rotation);

// Fills the surface with an upright picture, turned clockwise by 90 or -90 degrees. The picture is as wide as
// the surface is high and as high as the surface is wide.
void turnByQuarter(const std::uint32_t* picture, int rotation, Surface& surface);
