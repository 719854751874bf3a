// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in memory, and drawing helpers for the art of the demonstration cabinet: colours, gradients, and
// pseudo-random numbers that are the same on every machine. Used by everything in this folder; independent of
// the games.
#pragma once

#include <cairo.h>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

// Red, green and blue from 0 to 1.
struct Tint {
    double red;
    double green;
    double blue;
};

constexpr Tint white{1, 1, 1};
constexpr Tint black{0, 0, 0};

// Hue in turns, of which only the fraction counts; saturation and brightness 0 to 1.
Tint tintOf(double hue, double saturation, double brightness);
// Interpolates from the first (share 0) to the second (share 1).
Tint blended(Tint from, Tint to, double share);

struct GradientStop {
    double place; // 0 to 1
    Tint tint;
    double alpha = 1;
};

struct Point {
    double x;
    double y;
};

void setTint(cairo_t* context, Tint tint, double alpha = 1);
void setLinear(cairo_t* context, Point from, Point to, std::initializer_list<GradientStop> stops);
void setRadial(cairo_t* context, Point centre, double radius, std::initializer_list<GradientStop> stops);

void addCircle(cairo_t* context, double x, double y, double radius);
void addRoundedBox(cairo_t* context, double x, double y, double width, double height, double corner);

// Darkens the area from (0, 0) towards its corners, where the darkening reaches `share`.
void shadeCorners(cairo_t* context, double width, double height, double share);

// Pseudo-random numbers that depend on the seed only.
class SeededRandom {
public:
    explicit SeededRandom(std::uint32_t firstSeed) : seed_(firstSeed) {}
    double between(double low, double high);
    int below(int limit);

private:
    std::uint32_t seed_;
    std::uint32_t drawn_ = 0;
};

class Picture {
public:
    Picture(int width, int height);

    cairo_t* context() const { return drawing_.get(); }
    cairo_surface_t* surface() const { return pixels_.get(); }
    int width() const { return cairo_image_surface_get_width(pixels_.get()); }
    int height() const { return cairo_image_surface_get_height(pixels_.get()); }

    // With 8 bits a channel, or with a palette if 256 colours suffice. False on a write error.
    bool writePng(const std::string& path) const;

private:
    struct SurfaceDeleter {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    struct ContextDeleter {
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    std::unique_ptr<cairo_surface_t, SurfaceDeleter> pixels_;
    std::unique_ptr<cairo_t, ContextDeleter> drawing_;
};
