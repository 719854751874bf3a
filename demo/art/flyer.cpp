// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/flyer.h"

#include "art/hero.h"
#include "art/lettering.h"
#include "art/scenery.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr Tint paper{0.97, 0.94, 0.87};

constexpr std::array promises = {
    "THE ONE THEY WILL QUEUE FOR!", "MORE COINS. FEWER EXCUSES.", "SO EASY. SO HARD. SO GOOD.",
    "AS SEEN THROUGH EVERY WINDOW", "IT EARNS WHILE YOU SWEEP",   "NOBODY PLAYS IT ONLY ONCE",
    "ONE MORE GAME, THEY ALL SAY",  "BIG FUN IN A SMALL SPACE",   "YOUR FLOOR NEEDS THIS ONE",
};

constexpr std::array smallPrint = {
    "Real wood, real buttons, real noise.",
    "Colour monitor, bright even at noon.",
    "Coin door opens to your key only.",
    "Plays for days. Pays for years.",
};

// Halftone dots over an area.
void paintInkDots(cairo_t* context, const Box& box, double pitch, Tint ink) {
    cairo_save(context);
    cairo_rectangle(context, box.x, box.y, box.width, box.height);
    cairo_clip(context);
    for (int row = 0; row * pitch * 0.87 < box.height + pitch; ++row) {
        double share = row * pitch * 0.87 / box.height;
        double radius = pitch * 0.5 * std::max(share - 0.35, 0.0);
        for (double x = row % 2 * pitch / 2; radius > 0.5 && x < box.width + pitch; x += pitch) {
            addCircle(context, box.x + x, box.y + row * pitch * 0.87, radius);
        }
    }
    setTint(context, ink, 0.35);
    cairo_fill(context);
    cairo_restore(context);
}

// A slightly rotated photograph with a white edge and a shadow.
void paintPhoto(cairo_t* context, const Picture& photo, Point centre, double width, double height,
                double angle) {
    double scale = std::min(width / photo.width(), height / photo.height());
    double across = photo.width() * scale;
    double down = photo.height() * scale;
    double edge = width * 0.03;
    cairo_save(context);
    cairo_translate(context, centre.x, centre.y);
    cairo_rotate(context, angle);
    setTint(context, black, 0.4);
    cairo_rectangle(context, -across / 2 - edge + edge * 0.7, -down / 2 - edge + edge * 0.9,
                    across + 2 * edge, down + 2 * edge);
    cairo_fill(context);
    setTint(context, white);
    cairo_rectangle(context, -across / 2 - edge, -down / 2 - edge, across + 2 * edge, down + 2 * edge);
    cairo_fill(context);
    cairo_translate(context, -across / 2, -down / 2);
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, photo.surface(), 0, 0);
    cairo_paint(context);
    cairo_restore(context);
}

void paintPoster(cairo_t* context, const GameLook& look, const Box& poster) {
    cairo_save(context);
    cairo_translate(context, poster.x, poster.y);
    cairo_rectangle(context, 0, 0, poster.width, poster.height);
    cairo_clip(context);
    paintScenery(context, look, poster.width, poster.height);
    paintCreature(context, look, 1, {poster.width * 0.2, poster.height * 0.86}, poster.height * 0.28, 1);
    paintCreature(context, look, 2, {poster.width * 0.84, poster.height * 0.84}, poster.height * 0.24, -1);
    paintCreature(context, look, 0, {poster.width * 0.52, poster.height * 0.95}, poster.height * 0.54, 1);
    shadeCorners(context, poster.width, poster.height, 0.45);
    if (look.era != Era::modern) {
        paintInkDots(context, {0, 0, poster.width, poster.height}, poster.width * 0.012, look.deep);
    }
    cairo_restore(context);
    paintLogo(context, look, {poster.x, poster.y + poster.height * 0.03, poster.width, poster.height * 0.37});
}

void paintBanner(cairo_t* context, const GameLook& look, double y, double width, double height) {
    cairo_move_to(context, 0, y + height * 0.35);
    cairo_line_to(context, width, y - height * 0.35);
    cairo_line_to(context, width, y + height * 0.65);
    cairo_line_to(context, 0, y + height * 1.35);
    cairo_close_path(context);
    setTint(context, blended(look.deep, black, 0.4));
    cairo_fill_preserve(context);
    cairo_set_line_width(context, height * 0.12);
    setTint(context, look.warm);
    cairo_stroke(context);
    cairo_save(context);
    cairo_translate(context, width / 2, y + height * 0.5);
    cairo_rotate(context, -std::atan2(height * 0.7, width));
    cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_ITALIC, CAIRO_FONT_WEIGHT_BOLD);
    paintLine(context, promises[look.seed % promises.size()], {0, height * 0.22}, 0.5, height * 0.6,
              width * 0.92, {1, 0.95, 0.6});
    cairo_restore(context);
}

void paintFoot(cairo_t* context, const GameLook& look, const FlyerPhotos& photos, const Box& foot) {
    double column = foot.width * 0.37;
    paintPhoto(context, photos.play, {foot.x + column * 0.56, foot.y + foot.height * 0.36}, column,
               foot.height * 0.6, -0.05);
    paintPhoto(context, photos.laterPlay, {foot.x + column * 1.42, foot.y + foot.height * 0.42},
               column * 0.66, foot.height * 0.56, 0.06);
    paintPhoto(context, photos.cabinet, {foot.x + foot.width * 0.855, foot.y + foot.height * 0.34},
               column * 0.7, foot.height * 0.78, 0.03);
    Tint ink = blended(look.deep, black, 0.5);
    cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    double line = foot.height * 0.052;
    for (std::size_t i = 0; i < smallPrint.size(); ++i) {
        paintLine(
            context, smallPrint[(i + look.seed) % smallPrint.size()],
            {foot.x + foot.width * 0.02, foot.y + foot.height * 0.8 + static_cast<double>(i) * line * 1.15},
            0, line * 0.85, foot.width * 0.45, ink);
    }
    cairo_select_font_face(context, "Liberation Serif", CAIRO_FONT_SLANT_ITALIC, CAIRO_FONT_WEIGHT_BOLD);
    paintLine(context, look.maker, {foot.x + foot.width * 0.98, foot.y + foot.height * 0.93}, 1,
              foot.height * 0.12, foot.width * 0.48,
              look.era == Era::seventies ? Tint{0.8, 0.2, 0.1} : blended(look.main, ink, 0.4));
}

} // namespace

void paintFlyer(cairo_t* context, const GameLook& look, const FlyerPhotos& photos, double width,
                double height) {
    setLinear(context, {0, 0}, {width, height}, {{0, paper}, {1, blended(paper, {0.8, 0.7, 0.5}, 0.3)}});
    cairo_rectangle(context, 0, 0, width, height);
    cairo_fill(context);
    // Early flyers have a white margin, later ones are printed to the edge.
    bool edged = look.era == Era::seventies || look.era == Era::golden;
    double margin = edged ? width * 0.04 : 0;
    Box poster{margin, margin, width - 2 * margin, height * 0.64 - margin};
    paintPoster(context, look, poster);
    paintBanner(context, look, height * 0.62, width, height * 0.055);
    paintFoot(context, look, photos, {width * 0.04, height * 0.71, width * 0.92, height * 0.27});
}
