// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/hero.h"

#include "standin/pixel_canvas.h"

#include <numbers>

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;
constexpr int columns = 9;
constexpr int rows = 8;

// One circle for each cell of the creature, large enough to merge with its neighbours.
void addBody(cairo_t* context, const PixelCanvas& cells, double radius) {
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            if (cells.pixels[static_cast<std::size_t>(row * columns + column)] != 0) {
                addCircle(context, column + 0.5, row + 0.5, radius);
            }
        }
    }
}

void paintFace(cairo_t* context, std::uint32_t seed, int facing, Tint ink) {
    for (double x : {3.35, 5.65}) {
        setTint(context, ink);
        addCircle(context, x, 2.5, 1.12);
        cairo_fill(context);
        setTint(context, white);
        addCircle(context, x, 2.5, 0.92);
        cairo_fill(context);
        setTint(context, black);
        addCircle(context, x + facing * 0.3, 2.6, 0.46);
        cairo_fill(context);
        setTint(context, white);
        addCircle(context, x + facing * 0.3 - 0.17, 2.42, 0.15);
        cairo_fill(context);
    }
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(context, 0.42);
    setTint(context, ink);
    double frown = seed % 3 == 0 ? -0.35 : 0.4;
    cairo_move_to(context, 2.3, 1.35 - frown);
    cairo_line_to(context, 4.1, 1.35 + frown);
    cairo_move_to(context, 6.7, 1.35 - frown);
    cairo_line_to(context, 4.9, 1.35 + frown);
    cairo_stroke(context);
    // A grin with teeth, or an open mouth.
    cairo_arc(context, 4.5, 4.2, 1.25, 0, fullTurn / 2);
    cairo_close_path(context);
    setTint(context, seed % 2 == 0 ? white : Tint{0.45, 0.05, 0.1});
    cairo_fill_preserve(context);
    cairo_set_line_width(context, 0.26);
    setTint(context, ink);
    cairo_stroke(context);
    if (seed % 2 == 0) {
        cairo_set_line_width(context, 0.14);
        for (double x : {3.9, 4.5, 5.1}) {
            cairo_move_to(context, x, 4.25);
            cairo_line_to(context, x, 5.2);
        }
        cairo_stroke(context);
    }
}

} // namespace

void paintCreature(cairo_t* context, const GameLook& look, int number, Point feet, double size, int facing) {
    std::uint32_t seed = number == 0 ? look.seed : mixed(look.seed, static_cast<std::uint32_t>(number));
    PixelCanvas cells(columns, rows);
    drawCreature(cells, 0, 0, 1, seed, 0, 1, 1);
    Tint ink = blended(look.deep, black, 0.75);
    Tint body = number == 0 ? look.accent : tintOf(look.hue + 0.5 + 0.17 * number, 0.75, 0.98);
    double unit = size / (rows + 1.2);
    cairo_save(context);
    cairo_translate(context, feet.x - unit * columns / 2, feet.y - unit * (rows + 0.6));
    cairo_scale(context, unit, unit);
    setTint(context, black, 0.35);
    cairo_save(context);
    cairo_translate(context, columns / 2.0, rows + 0.35);
    cairo_scale(context, 1, 0.16);
    addCircle(context, 0, 0, 4.2);
    cairo_restore(context);
    cairo_fill(context);
    setTint(context, ink);
    addBody(context, cells, 1.02);
    cairo_fill(context);
    addBody(context, cells, 0.76);
    setLinear(context, {0, 0}, {0, rows},
              {{0, blended(body, white, 0.35)}, {0.5, body}, {1, blended(body, ink, 0.55)}});
    cairo_fill_preserve(context);
    cairo_save(context);
    cairo_clip(context);
    setRadial(context, {2.6, 1.2}, 4.2, {{0, white, 0.65}, {1, white, 0}});
    cairo_paint(context);
    cairo_restore(context);
    paintFace(context, seed, facing, ink);
    cairo_restore(context);
}
