// A picture in memory, and the small tools with which the art of the demonstration cabinet is painted:
// colours, gradients, chance that is the same on every machine. Used by everything in this folder; knows no
// game.
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

constexpr Tint White{1, 1, 1};
constexpr Tint Black{0, 0, 0};

// Hue around the circle, whole turns apart the same; saturation and brightness 0 to 1.
Tint tintOf(double hue, double saturation, double brightness);
// From the first (share 0) to the second (share 1).
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

// Darkens the corners of the area from (0, 0), by that share at the very corner.
void shadeCorners(cairo_t* context, double width, double height, double share);

// A row of numbers that follows from the seed.
class Dice {
public:
    explicit Dice(std::uint32_t firstSeed) : seed(firstSeed) {}
    double between(double low, double high);
    int below(int limit);

private:
    std::uint32_t seed;
    std::uint32_t thrown = 0;
};

class Picture {
public:
    Picture(int width, int height);

    cairo_t* context() const { return drawing.get(); }
    cairo_surface_t* surface() const { return pixels.get(); }
    int width() const { return cairo_image_surface_get_width(pixels.get()); }
    int height() const { return cairo_image_surface_get_height(pixels.get()); }

    // Of 8 bits a channel; with a palette when 256 colours are enough. False when the file cannot be written
    // in full.
    bool writePng(const std::string& path) const;

private:
    struct SurfaceEnd {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    struct ContextEnd {
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    std::unique_ptr<cairo_surface_t, SurfaceEnd> pixels;
    std::unique_ptr<cairo_t, ContextEnd> drawing;
};
