// The lettering of a game's screen: the title, large enough to be
// read from across a room, and the lines above and below it. Owned by
// the game window. The title is drawn once, since it does not change.
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
    struct SurfaceEnd {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    int width;
    int height;
    std::unique_ptr<cairo_surface_t, SurfaceEnd> title;
};
