// SPDX-License-Identifier: GPL-3.0-or-later
// The text on the screen of a running game: the title, large enough to be read from across a room, and the
// lines above and below it. Owned by the game window. The title is rendered once, since it does not change.
#pragma once

#include "games.h"

#include <cairo.h>
#include <memory>

class Caption {
public:
    // For an area of that size in pixels.
    Caption(const DemoGame& game, int width, int height);

    void draw(cairo_t* context, double seconds, int score) const;

private:
    struct SurfaceDeleter {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    int width_;
    int height_;
    std::unique_ptr<cairo_surface_t, SurfaceDeleter> title_;
};
