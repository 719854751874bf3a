// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/scene.h"

#include "standin/pixel_canvas.h"
#include "standin/vector_scene.h"

#include <algorithm>
#include <cmath>

namespace {

// The parameters of a raster scene.
struct Stage {
    PixelCanvas& canvas;
    std::uint32_t seed;
    double hue;
    const SceneMoment& moment;
    bool titled; // the title covers the upper half

    int across(double share) const { return static_cast<int>(share * canvas.width); }
    int down(double share) const { return static_cast<int>(share * canvas.height); }
    int step(double rate) const { return static_cast<int>(moment.seconds * rate) & 1; }
};

double hueOf(std::uint32_t seed) {
    return seed % 360 / 360.0;
}

// Position along a side of something that moves `speed` pixels a second and re-enters at the other end.
int wrapped(double start, double speed, double seconds, int side) {
    double place = std::fmod(start + speed * seconds, side);
    return static_cast<int>(place < 0 ? place + side : place);
}

void drawStars(const Stage& stage, int bottom, int count) {
    for (int i = 0; i < count; ++i) {
        std::uint32_t chance = mixed(stage.seed, 1000u + static_cast<std::uint32_t>(i));
        int layer = 1 + static_cast<int>(chance >> 29);
        int x = static_cast<int>(chance % static_cast<std::uint32_t>(stage.canvas.width));
        int y = wrapped(static_cast<double>((chance >> 8) % 4096), layer * 6, stage.moment.seconds, bottom);
        stage.canvas.fill(x, y, 1, 1, colourOf(stage.hue + 0.5, 0.2, 0.3 + layer * 0.08));
    }
}

// Rows of creatures march across, a ship below them shoots.
void drawInvasion(const Stage& stage) {
    stage.canvas.fill(0, 0, stage.canvas.width, stage.canvas.height, colourOf(stage.hue, 0.8, 0.08));
    drawStars(stage, stage.canvas.height, 90);
    int cell = stage.titled || stage.canvas.width < 200 ? 1 : 2;
    int rows = stage.titled ? 4 : 5;
    int columns = (stage.canvas.width - 60) / (19 * cell);
    int sway = static_cast<int>(std::sin(stage.moment.seconds * 0.8) * 22);
    int left = (stage.canvas.width - columns * 19 * cell) / 2 + sway;
    int top = stage.down(stage.titled ? 0.47 : 0.13);
    for (int row = 0; row < rows; ++row) {
        Colour body = colourOf(stage.hue + 0.13 * row, 0.75, 1.0);
        for (int column = 0; column < columns; ++column) {
            drawCreature(stage.canvas, left + column * 19 * cell, top + row * 13 * cell, cell,
                         mixed(stage.seed, static_cast<std::uint32_t>(row)), stage.step(2.5), body, 0);
        }
    }
    for (int shield = 0; shield < 4 && !stage.titled; ++shield) {
        int x = stage.across(0.125 + 0.25 * shield);
        Colour wall = colourOf(stage.hue + 0.33, 0.7, 0.8);
        stage.canvas.fill(x - 8, stage.down(0.8), 16, 4, wall);
        stage.canvas.fill(x - 11, stage.down(0.8) + 4, 22, 5, wall);
        stage.canvas.fill(x - 11, stage.down(0.8) + 9, 7, 4, wall);
        stage.canvas.fill(x + 4, stage.down(0.8) + 9, 7, 4, wall);
    }
    int ship = stage.across(0.5 + stage.moment.playerX * 0.42);
    int deck = stage.down(0.9 + stage.moment.playerY * 0.06);
    for (int shot = 0; shot < 3; ++shot) {
        stage.canvas.fill(ship, deck - wrapped(shot * 40, 130, stage.moment.seconds, 120), 1, 5, 0xFFFFFF);
    }
    drawCreature(stage.canvas, ship - 9, deck, 2, stage.seed ^ 0x5157u, 0,
                 colourOf(stage.hue + 0.5, 0.5, 1.0), 0x202020);
}

// A road towards the sunset, with signs along it.
void drawRoad(const Stage& stage) {
    int horizon = stage.down(0.52);
    for (int y = 0; y < horizon; ++y) {
        double share = static_cast<double>(y / 4 * 4) / horizon;
        stage.canvas.fill(0, y, stage.canvas.width, 1,
                          colourOf(stage.hue + 0.1 * share, 0.85, 0.15 + 0.5 * share));
    }
    int radius = stage.down(0.16);
    for (int y = -radius; y < 0; ++y) {
        int half = static_cast<int>(std::sqrt(static_cast<double>(radius * radius - y * y)));
        if (y > -radius / 2 && (-y) % 5 == 0) {
            continue;
        }
        stage.canvas.fill(stage.across(0.5) - half, horizon + y, half * 2, 1,
                          colourOf(0.14 - 0.1 * (radius + y) / radius, 0.8, 1.0));
    }
    double bend = std::sin(stage.moment.seconds * 0.5 + stage.seed % 7) * 0.22;
    for (int y = horizon; y < stage.canvas.height; ++y) {
        double near = (y - horizon + 1.0) / (stage.canvas.height - horizon);
        bool stripe = std::fmod(2.2 / near + stage.moment.seconds * 5, 2.0) < 1.0;
        double middle = 0.5 + bend * (1 - near) * (1 - near) * 1.6 - stage.moment.playerX * near * 0.3;
        int half = stage.across(0.03 + 0.42 * near);
        int centre = stage.across(middle);
        int kerb = 1 + half / 8;
        stage.canvas.fill(0, y, stage.canvas.width, 1, colourOf(stage.hue + 0.35, 0.7, stripe ? 0.34 : 0.28));
        stage.canvas.fill(centre - half - kerb, y, (half + kerb) * 2, 1, stripe ? 0xF0F0F0 : 0xC02030);
        stage.canvas.fill(centre - half, y, half * 2, 1, stripe ? 0x3C3C46 : 0x36363F);
        if (stripe) {
            stage.canvas.fill(centre - half / 24, y, 1 + half / 12, 1, 0xE8E0C0);
        }
    }
    drawCreature(stage.canvas, stage.across(0.5) - 22, stage.down(0.98) - 40, 5, stage.seed, stage.step(8),
                 colourOf(stage.hue + 0.6, 0.7, 1.0), 0x101010);
}

// Clouds, brick ledges with coins above them, a floor with walking creatures.
void drawPlatforms(const Stage& stage) {
    for (int cloud = 0; cloud < 4; ++cloud) {
        int x = stage.across(0.06 + 0.25 * cloud) + static_cast<int>(stage.seed >> cloud & 15);
        int y = stage.down(0.12 + 0.05 * (cloud % 2));
        for (int puff = 0; puff < 3; ++puff) {
            stage.canvas.fill(x + 6 * puff, y - (puff == 1 ? 4 : 0), 14, puff == 1 ? 9 : 6, 0xE8F0F8);
        }
    }
    for (int ledge = 0; ledge < 3; ++ledge) {
        int x = stage.across(0.08 + 0.32 * ledge);
        int y = stage.down(ledge == 1 ? 0.4 : 0.56);
        for (int brick = 0; brick < 5; ++brick) {
            stage.canvas.fill(x + brick * 13, y, 12, 9, colourOf(stage.hue + 0.48, 0.7, 0.85));
            stage.canvas.fill(x + brick * 13, y + 6, 12, 3, colourOf(stage.hue + 0.48, 0.8, 0.5));
            stage.canvas.fill(x + brick * 13 + 4, y - 13, 5, 8, 0xFFD040);
            stage.canvas.fill(x + brick * 13 + 6, y - 11, 1, 4, 0x805010);
        }
        drawCreature(stage.canvas, x + 52 - 14 * ledge, y - 16, 2,
                     mixed(stage.seed, 40u + static_cast<Colour>(ledge)), stage.step(3),
                     colourOf(stage.hue + 0.62 + 0.2 * ledge, 0.75, 1.0), 0x101010);
    }
    int floor = stage.down(0.9);
    for (int x = 0; x < stage.canvas.width; x += 16) {
        stage.canvas.fill(x, floor, 15, stage.canvas.height - floor, colourOf(stage.hue + 0.42, 0.6, 0.45));
        stage.canvas.fill(x, floor, 15, 4, colourOf(stage.hue + 0.3, 0.7, 0.8));
    }
}

// Hills in three layers scroll past a creature that hops after fruit.
void drawHills(const Stage& stage) {
    for (int y = 0; y < stage.canvas.height; ++y) {
        double share = static_cast<double>(y / 6 * 6) / stage.canvas.height;
        stage.canvas.fill(0, y, stage.canvas.width, 1,
                          colourOf(stage.hue, 0.75 - 0.35 * share, 0.2 + 0.45 * share));
    }
    for (int depth = 0; depth < 3; ++depth) {
        double travel = stage.moment.seconds * (14 + 24 * depth) + stage.moment.playerX * 20;
        Colour colour = colourOf(stage.hue + 0.3 + 0.05 * depth, 0.7, 0.22 + 0.14 * depth);
        for (int x = 0; x < stage.canvas.width; ++x) {
            double place = (x + travel) / (64 - 12 * depth);
            double rise = std::sin(place + depth) * 0.05 + std::sin(place * 2.3 + stage.seed % 11) * 0.025;
            int top = stage.down(0.6 + 0.12 * depth - rise);
            stage.canvas.fill(x, top, 1, stage.canvas.height - top, colour);
        }
    }
    if (!stage.titled) {
        drawPlatforms(stage);
    }
    for (int fruit = 0; fruit < 6; ++fruit) {
        int x = stage.canvas.width -
                wrapped(fruit * stage.canvas.width / 6.0, 62, stage.moment.seconds, stage.canvas.width + 20);
        int y = stage.down(0.66) + static_cast<int>(std::sin(stage.moment.seconds * 3 + fruit) * 5);
        drawCreature(stage.canvas, x, y, 1, stage.seed ^ 0xF00Du, 0, colourOf(stage.hue + 0.55, 0.6, 1.0),
                     0x301010);
    }
    double hop = std::abs(std::sin(stage.moment.seconds * 4));
    int x = stage.across(0.3 + stage.moment.playerX * 0.25);
    int cell = stage.titled ? 3 : 4;
    int y = stage.down(0.9 - 0.14 * hop + 0.08 * stage.moment.playerY) - 8 * cell;
    drawCreature(stage.canvas, x, y, cell, stage.seed, hop < 0.3 ? 0 : 1,
                 colourOf(stage.hue + 0.55, 0.25, 1.0), 0x101018);
}

// The display of a handheld: all positions of a figure are faintly visible, one at a time is dark.
void drawGlass(const Stage& stage) {
    constexpr Colour glass = 0xB9C4A0;
    constexpr Colour faint = 0xA9B491;
    constexpr Colour dark = 0x23281F;
    stage.canvas.fill(0, 0, stage.canvas.width, stage.canvas.height, glass);
    stage.canvas.fill(0, stage.down(0.93), stage.canvas.width, 2, dark);
    int beat = static_cast<int>(stage.moment.seconds * 3);
    for (int column = 0; column < 6; ++column) {
        int x = stage.across(0.07 + 0.15 * column);
        for (int row = 0; row < 3; ++row) {
            bool lit = (beat + column * 2) % 5 == row;
            drawCreature(stage.canvas, x, stage.down(0.48 + 0.1 * row), 1, stage.seed, row & 1,
                         lit ? dark : faint, glass);
        }
        int place = static_cast<int>((stage.moment.playerX + 1) * 2.99);
        drawCreature(stage.canvas, x - 4, stage.down(0.8), 2, stage.seed ^ 0xABu, 0,
                     place == column ? dark : faint, glass);
    }
}

} // namespace

void paintEnlarged(cairo_t* context, PixelCanvas& canvas, double width, double height) {
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(canvas.pixels.data()), CAIRO_FORMAT_RGB24, canvas.width,
        canvas.height, canvas.width * static_cast<int>(sizeof(Colour)));
    cairo_save(context);
    cairo_scale(context, width / canvas.width, height / canvas.height);
    cairo_set_source_surface(context, surface, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
    cairo_paint(context);
    cairo_restore(context);
    cairo_surface_destroy(surface);
}

void drawPixelScene(PixelCanvas& canvas, const DemoGame& game, const SceneMoment& moment, bool titled) {
    std::uint32_t seed = seedOfName(game.name);
    Stage stage{canvas, seed, hueOf(seed), moment, titled};
    bool wheel = game.control.type == "paddle" || game.control.type == "pedal" || game.control.type == "dial";
    bool portrait = canvas.width < canvas.height;
    if (game.display.type == "lcd") {
        drawGlass(stage);
    } else if (wheel && !portrait) {
        drawRoad(stage);
    } else if (portrait || seed % 2 == 0) {
        drawInvasion(stage);
    } else {
        drawHills(stage);
    }
}

void drawScene(cairo_t* context, const DemoGame& game, const SceneMoment& moment, double width,
               double height) {
    if (game.display.type == "vector") {
        std::uint32_t seed = seedOfName(game.name);
        drawVectorScene(context, seed, colourOf(hueOf(seed), 0.6, 1.0), moment, width, height);
        return;
    }
    // The short side has 192 pixels at every rotation; they need not be square.
    bool portrait = width < height;
    PixelCanvas canvas(portrait ? 192 : 256, portrait ? 256 : 192);
    drawPixelScene(canvas, game, moment, true);
    paintEnlarged(context, canvas, width, height);
}
