// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/vector_scene.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

// Strokes the current path as a glowing line, wide and faint, then thin and bright. Clears the path.
void strokeBeam(cairo_t* context, Colour colour, double lineWidth) {
    double red = (colour >> 16 & 0xFF) / 255.0;
    double green = (colour >> 8 & 0xFF) / 255.0;
    double blue = (colour & 0xFF) / 255.0;
    cairo_set_line_width(context, lineWidth * 4);
    cairo_set_source_rgba(context, red, green, blue, 0.25);
    cairo_stroke_preserve(context);
    cairo_set_line_width(context, lineWidth);
    cairo_set_source_rgb(context, 0.4 + 0.6 * red, 0.4 + 0.6 * green, 0.4 + 0.6 * blue);
    cairo_stroke(context);
}

// A floor grid: lines that meet at the horizon, and lines that approach.
void addFloor(cairo_t* context, const SceneMoment& moment, double width, double height) {
    double horizon = height * 0.66;
    double middle = width * (0.5 - moment.playerX * 0.2);
    for (int i = -8; i <= 8; ++i) {
        cairo_move_to(context, middle + i * width * 0.02, horizon);
        cairo_line_to(context, middle + i * width * 0.2, height);
    }
    for (int i = 0; i < 9; ++i) {
        double near = std::pow((i + std::fmod(moment.seconds, 1.0)) / 9, 2.5);
        cairo_move_to(context, 0, horizon + near * (height - horizon));
        cairo_line_to(context, width, horizon + near * (height - horizon));
    }
}

// A prism with `sides` sides, rotating about two axes around the given centre.
void addPrism(cairo_t* context, int sides, double centreX, double centreY, double size, double angle) {
    constexpr int mostSides = 8;
    std::array<std::array<double, 2>, mostSides * 2> corners;
    for (int i = 0; i < sides * 2; ++i) {
        double turn = fullTurn * (i % sides) / sides + angle;
        double x = std::cos(turn);
        double depth = std::sin(turn);
        double y = i < sides ? -0.7 : 0.7;
        double tilt = angle * 0.6;
        double tiltedY = y * std::cos(tilt) - depth * std::sin(tilt);
        double tiltedDepth = y * std::sin(tilt) + depth * std::cos(tilt);
        double scale = size / (1.0 + 0.25 * tiltedDepth);
        corners[static_cast<std::size_t>(i)] = {centreX + x * scale, centreY + tiltedY * scale};
    }
    auto edge = [&](int from, int to) {
        const auto& start = corners[static_cast<std::size_t>(from)];
        const auto& end = corners[static_cast<std::size_t>(to)];
        cairo_move_to(context, start[0], start[1]);
        cairo_line_to(context, end[0], end[1]);
    };
    for (int i = 0; i < sides; ++i) {
        int next = (i + 1) % sides;
        edge(i, next);
        edge(sides + i, sides + next);
        edge(i, sides + i);
    }
}

} // namespace

void drawVectorScene(cairo_t* context, std::uint32_t seed, Colour colour, const SceneMoment& moment,
                     double width, double height) {
    double beam = width / 640;
    cairo_set_source_rgb(context, 0, 0, 0.015);
    cairo_paint(context);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    addFloor(context, moment, width, height);
    strokeBeam(context, colourOf(0.55, 0.9, 0.55), beam * 0.8);
    for (int i = 0; i < 3; ++i) {
        std::uint32_t chance = mixed(seed, static_cast<std::uint32_t>(i));
        double drift = moment.seconds * (0.25 + chance % 5 * 0.06) + i * 2.1;
        addPrism(context, 3 + static_cast<int>(chance % 4), width * (0.5 + 0.34 * std::sin(drift)),
                 height * (0.52 + 0.05 * std::cos(drift * 1.7)), width * (0.05 + 0.015 * i),
                 moment.seconds * 1.3 + i);
    }
    strokeBeam(context, colour, beam);
    double x = width * (0.5 + moment.playerX * 0.42);
    double y = height * (0.88 + moment.playerY * 0.08);
    double ship = width * 0.035;
    cairo_move_to(context, x, y - ship);
    cairo_line_to(context, x + ship * 0.8, y + ship * 0.6);
    cairo_line_to(context, x, y + ship * 0.25);
    cairo_line_to(context, x - ship * 0.8, y + ship * 0.6);
    cairo_close_path(context);
    strokeBeam(context, 0xFFFFC0, beam * 1.3);
}
