// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/marquee.h"

#include "art/hero.h"
#include "art/lettering.h"
#include "art/scenery.h"

namespace {

// Stripes along the bottom edge, for games of the seventies.
void paintStripes(cairo_t* context, const GameLook& look, double width, double height) {
    const Tint stripes[] = {
        {0.85, 0.2, 0.13}, {0.96, 0.53, 0.1}, {1, 0.8, 0.25}, blended(look.deep, black, 0.3)};
    double y = height * 0.8;
    for (const Tint& stripe : stripes) {
        setTint(context, stripe);
        cairo_rectangle(context, 0, y, width, height * 0.055);
        cairo_fill(context);
        y += height * 0.05;
    }
}

void paintCast(cairo_t* context, const GameLook& look, double width, double height, Box& room) {
    double floor = height * 0.985;
    switch (look.seed / 7 % 3) {
    case 0: // the hero on the left, fleeing creatures on the right
        paintCreature(context, look, 0, {height * 0.48, floor}, height * 0.92, 1);
        paintCreature(context, look, 1, {width - height * 0.62, floor}, height * 0.42, -1);
        paintCreature(context, look, 2, {width - height * 0.26, floor}, height * 0.58, -1);
        room = {height * 0.86, 0, width - height * 1.62, height};
        break;
    case 1: // two creatures facing each other
        paintCreature(context, look, 0, {height * 0.42, floor}, height * 0.84, 1);
        paintCreature(context, look, 1, {width - height * 0.42, floor}, height * 0.84, -1);
        room = {height * 0.72, 0, width - height * 1.44, height};
        break;
    default: // a crowd along the bottom edge
        for (int i = 4; i > 0; --i) {
            paintCreature(context, look, i, {width - height * (0.2 + 0.36 * i), floor}, height * 0.36, -1);
        }
        paintCreature(context, look, 0, {width - height * 0.38, floor}, height * 0.74, -1);
        room = {height * 0.12, -height * 0.03, width - height * 1.0, height * 0.95};
        break;
    }
}

void paintFrame(cairo_t* context, const GameLook& look, double width, double height) {
    double edge = height * 0.035;
    cairo_set_line_width(context, edge);
    setTint(context, blended(look.deep, black, 0.6));
    cairo_rectangle(context, edge / 2, edge / 2, width - edge, height - edge);
    cairo_stroke(context);
    cairo_set_line_width(context, edge * 0.35);
    setTint(context, look.warm);
    addRoundedBox(context, edge * 1.3, edge * 1.3, width - edge * 2.6, height - edge * 2.6, edge);
    cairo_stroke(context);
}

// Light from the lamp behind the sign, brightest along its middle.
void paintTube(cairo_t* context, double width, double height) {
    cairo_set_operator(context, CAIRO_OPERATOR_SOFT_LIGHT);
    setLinear(context, {0, 0}, {0, height}, {{0, black, 0.35}, {0.45, white, 0.45}, {1, black, 0.4}});
    cairo_rectangle(context, 0, 0, width, height);
    cairo_fill(context);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
}

} // namespace

void paintMarquee(cairo_t* context, const GameLook& look, double width, double height) {
    paintScenery(context, look, width, height);
    shadeCorners(context, width, height, 0.6);
    if (look.era == Era::seventies) {
        paintStripes(context, look, width, height);
    }
    Box room{};
    paintCast(context, look, width, height, room);
    paintLogo(context, look, room);
    cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    paintLine(context, inCapitals(look.maker), {room.x + room.width / 2, height * 0.945}, 0.5, height * 0.055,
              room.width, white);
    paintTube(context, width, height);
    paintFrame(context, look, width, height);
}
