// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/screen_shots.h"

#include "art/lettering.h"
#include "standin/scene.h"

#include <algorithm>
#include <utility>

namespace {

// Size after rotation. A vector display has no native resolution.
std::pair<int, int> resolutionOf(const DemoGame& game) {
    int width = game.display.width > 0 ? game.display.width : 640;
    int height = game.display.height > 0 ? game.display.height : 480;
    if (game.display.portrait()) {
        std::swap(width, height);
    }
    return {width, height};
}

// Later games draw their figures with blocks of four pixels.
int blockOf(int width) {
    return width >= 640 ? 2 : 1;
}

void setPixelFont(cairo_t* context, double size) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
    cairo_select_font_face(context, "DejaVu Sans Mono", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(context, size);
}

// Centred at that share of the width, at integer coordinates.
void paintPixelText(Picture& picture, const std::string& text, double share, double baseline, double size,
                    Tint tint) {
    setPixelFont(picture.context(), size);
    cairo_text_extents_t extents;
    cairo_text_extents(picture.context(), text.c_str(), &extents);
    double x = (picture.width() - extents.x_advance) * share;
    for (int shade : {1, 0}) {
        cairo_move_to(picture.context(), static_cast<int>(x) + shade, static_cast<int>(baseline) + shade);
        setTint(picture.context(), shade == 1 ? black : tint);
        cairo_show_text(picture.context(), text.c_str());
    }
}

double pixelTextSize(const Picture& picture) {
    return 8.0 * blockOf(picture.width()) + (picture.width() >= 320 && picture.width() < 640 ? 1 : 0);
}

std::string digits(int number, std::size_t places) {
    std::string text = std::to_string(number);
    return std::string(places - std::min(places, text.size()), '0') + text;
}

void paintBackdrop(Picture& picture, const DemoGame& game, const GameLook& look) {
    int block = blockOf(picture.width());
    PixelCanvas canvas(picture.width() / block, picture.height() / block);
    bool black = look.era == Era::seventies || look.era == Era::golden;
    constexpr int bands = 14;
    for (int band = 0; band < bands && !black; ++band) {
        Colour colour = colourOf(look.hue + 0.02 * band, 0.85, 0.12 + 0.035 * band);
        canvas.fill(0, canvas.height * band / bands, canvas.width, canvas.height / bands + 1, colour);
    }
    SeededRandom random(look.seed);
    for (int star = 0; star < 70; ++star) {
        canvas.fill(random.below(canvas.width), random.below(canvas.height), 1, 1,
                    colourOf(look.hue + 0.5, 0.3, random.between(0.3, 0.9)));
    }
    int cell = canvas.width >= 300 ? 2 : 1;
    for (int i = 0; i < 5; ++i) {
        drawCreature(canvas, canvas.width * (i + 1) / 6 - 5 * cell, canvas.height * 62 / 100, cell,
                     i == 2 ? look.seed : mixed(look.seed, static_cast<std::uint32_t>(i)), i & 1,
                     colourOf(look.hue + 0.5 + 0.13 * i, 0.7, 1.0),
                     game.display.type == "lcd" ? 0xB9C4A0 : 0x101010);
    }
    paintEnlarged(picture.context(), canvas, picture.width(), picture.height());
}

} // namespace

Picture snapshotOf(const DemoGame& game, double seconds) {
    auto [width, height] = resolutionOf(game);
    Picture picture(width, height);
    SceneMoment moment{seconds, 0.25, 0};
    if (game.display.type == "vector") {
        drawScene(picture.context(), game, moment, width, height);
    } else {
        int block = blockOf(width);
        PixelCanvas canvas(width / block, height / block);
        drawPixelScene(canvas, game, moment, false);
        paintEnlarged(picture.context(), canvas, width, height);
    }
    double size = pixelTextSize(picture);
    if (game.display.type != "lcd") {
        paintPixelText(picture, "1UP " + digits(static_cast<int>(seconds * 370) * 10, 6), 0.04, size * 1.4,
                       size, white);
        paintPixelText(picture, "HIGH 050000", 0.96, size * 1.4, size, {1, 0.4, 0.35});
    }
    return picture;
}

Picture titleScreenOf(const DemoGame& game, const GameLook& look) {
    auto [width, height] = resolutionOf(game);
    Picture picture(width, height);
    paintBackdrop(picture, game, look);
    cairo_set_antialias(picture.context(), CAIRO_ANTIALIAS_NONE);
    paintLogo(picture.context(), look, {width * 0.03, height * 0.1, width * 0.94, height * 0.46});
    double size = pixelTextSize(picture);
    paintPixelText(picture, "PUSH START BUTTON", 0.5, height * 0.79, size, {1, 0.85, 0.3});
    if (!look.makerYear.empty()) {
        paintPixelText(picture, "© " + inCapitals(look.makerYear), 0.5, height * 0.88, size, white);
    }
    paintPixelText(picture, "CREDIT 01", 0.96, height * 0.97, size, {0.55, 0.8, 1});
    return picture;
}
