// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the logo of a game, its title with outlines, depth, gradients and a bend in a style that suits maker
// and year; and plain lines of text. Called for marquees, flyers and title screens.
#pragma once

#include "art/game_look.h"

struct Box {
    double x;
    double y;
    double width;
    double height;
};

// Centred in the box, as large as possible; breaks the title into lines where that helps.
void paintLogo(cairo_t* context, const GameLook& look, const Box& box);

// One plain line; `share` 0 starts at x, 0.5 is centred on it, 1 ends there. Shrunk if it is longer than the
// limit.
void paintLine(cairo_t* context, const std::string& text, Point baseline, double share, double size,
               double limit, Tint tint);

std::string inCapitals(const std::string& text);
