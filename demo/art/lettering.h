// The logo of a game: its title in the lettering of its maker and
// time, with outlines, depth, gradients and a bend. Called for
// marquees, flyers and title screens, and for the small print on them.
#pragma once

#include "art/game_look.h"

struct Box {
    double x;
    double y;
    double width;
    double height;
};

// As large as the box allows, in as many lines as that takes, in the middle of it.
void paintLogo(cairo_t* context, const GameLook& look, const Box& box);

// One line without ornament; `share` 0 begins at x, 0.5 is centred on it, 1 ends there. Shrunk when it is
// longer than the limit.
void paintLine(cairo_t* context, const std::string& text, Point baseline, double share, double size,
               double limit, Tint tint);

std::string inCapitals(const std::string& text);
