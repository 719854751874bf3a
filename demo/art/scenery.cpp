// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/scenery.h"

#include "standin/vector_scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

struct Scene {
    cairo_t* context;
    const GameLook& look;
    double width;
    double height;
    double unit; // the shorter side
    SeededRandom random;
};

void fillAll(const Scene& scene) {
    cairo_rectangle(scene.context, 0, 0, scene.width, scene.height);
    cairo_fill(scene.context);
}

// From the night above to the light at the horizon.
void paintSky(const Scene& scene, double horizon) {
    const GameLook& look = scene.look;
    setLinear(scene.context, {0, 0}, {0, horizon},
              {{0, look.deep}, {0.55, look.main}, {1, blended(look.main, look.warm, 0.75)}});
    fillAll(scene);
}

// Light that is added to the existing colours.
void paintGlow(const Scene& scene, Point centre, double radius, Tint tint, double alpha) {
    cairo_set_operator(scene.context, CAIRO_OPERATOR_SCREEN);
    setRadial(scene.context, centre, radius, {{0, tint, alpha}, {0.4, tint, alpha * 0.35}, {1, tint, 0}});
    cairo_rectangle(scene.context, centre.x - radius, centre.y - radius, radius * 2, radius * 2);
    cairo_fill(scene.context);
    cairo_set_operator(scene.context, CAIRO_OPERATOR_OVER);
}

void paintStars(Scene& scene, double depth, int count) {
    for (int i = 0; i < count; ++i) {
        double x = scene.random.between(0, scene.width);
        double y = scene.random.between(0, depth);
        double size = scene.unit * 0.0035 * scene.random.between(0.4, 1.3);
        setTint(scene.context, white, scene.random.between(0.35, 1));
        if (i % 14 == 0) {
            cairo_move_to(scene.context, x, y - size * 5);
            cairo_curve_to(scene.context, x, y, x, y, x + size * 5, y);
            cairo_curve_to(scene.context, x, y, x, y, x, y + size * 5);
            cairo_curve_to(scene.context, x, y, x, y, x - size * 5, y);
            cairo_curve_to(scene.context, x, y, x, y, x, y - size * 5);
        } else {
            addCircle(scene.context, x, y, size);
        }
        cairo_fill(scene.context);
    }
}

// A low sun cut by horizontal bands.
void paintSun(const Scene& scene, Point centre, double radius, bool banded) {
    paintGlow(scene, centre, radius * 2.6, scene.look.warm, 0.75);
    cairo_save(scene.context);
    if (banded) {
        for (double y = centre.y - radius; y < centre.y + radius;) {
            double share = (y - centre.y + radius) / (2 * radius);
            double gap = share < 0.45 ? 0 : radius * 0.11 * share;
            cairo_rectangle(scene.context, centre.x - radius, y, radius * 2, radius * 0.19 - gap + 0.5);
            y += radius * 0.19;
        }
        cairo_clip(scene.context);
    }
    setLinear(scene.context, {0, centre.y - radius}, {0, centre.y + radius},
              {{0, blended(scene.look.warm, white, 0.65)}, {1, scene.look.warm}});
    addCircle(scene.context, centre.x, centre.y, radius);
    cairo_fill(scene.context);
    cairo_restore(scene.context);
}

// Height of a ridge, -1 to 1: the sum of a few waves of different lengths.
double ridge(double place, double phase, double roughness) {
    return (std::sin(place * 1.3 + phase) + std::sin(place * 2.9 + phase * 2.1) * 0.5 +
            std::sin(place * 7.1 + phase * 0.7) * 0.22 * roughness +
            std::sin(place * 17.3 + phase * 1.9) * 0.1 * roughness) /
           1.7;
}

void paintHills(Scene& scene, double horizon, double roughness) {
    constexpr int layers = 4;
    for (int layer = 0; layer < layers; ++layer) {
        double share = static_cast<double>(layer) / (layers - 1);
        double base = horizon + (scene.height - horizon) * share * 0.62;
        double phase = scene.random.between(0, 20);
        double swing = scene.unit * (0.12 - 0.03 * share);
        cairo_move_to(scene.context, 0, scene.height);
        for (double x = 0; x <= scene.width + 4; x += 4) {
            cairo_line_to(scene.context, x,
                          base - swing * (0.6 + ridge(x / scene.unit * (2.2 - share), phase, roughness)));
        }
        cairo_line_to(scene.context, scene.width + 4, scene.height);
        cairo_close_path(scene.context);
        Tint top = blended(blended(scene.look.main, scene.look.warm, 0.5 - 0.4 * share), scene.look.deep,
                           0.2 + 0.7 * share);
        setLinear(scene.context, {0, base - swing * 1.6}, {0, base + scene.unit * 0.25},
                  {{0, top}, {1, blended(top, layer < layers - 1 ? scene.look.warm : black, 0.28)}});
        cairo_fill(scene.context);
    }
}

void paintHillScene(Scene& scene) {
    double horizon = scene.height * 0.5;
    paintSky(scene, horizon);
    paintStars(scene, scene.height * 0.3, static_cast<int>(20 * scene.width / scene.unit));
    paintSun(scene, {scene.width * scene.random.between(0.3, 0.7), horizon * 0.8}, scene.unit * 0.2, false);
    for (int cloud = 0; cloud < 5; ++cloud) {
        double x = scene.random.between(0, scene.width);
        double y = scene.random.between(0.08, 0.36) * scene.height;
        for (int puff = 0; puff < 5; ++puff) {
            addCircle(scene.context, x + puff * scene.unit * 0.045,
                      y - std::sin(puff * 0.8) * scene.unit * 0.025,
                      scene.unit * scene.random.between(0.02, 0.045));
        }
        setTint(scene.context, blended(scene.look.warm, white, 0.6), 0.4);
        cairo_fill(scene.context);
    }
    paintHills(scene, horizon, 0.5);
}

void paintDesertScene(Scene& scene) {
    double horizon = scene.height * 0.6;
    paintSky(scene, horizon);
    paintSun(scene, {scene.width * 0.5, horizon * 0.95}, scene.unit * 0.34, true);
    for (int layer = 0; layer < 2; ++layer) {
        double base = horizon + layer * scene.unit * 0.06;
        cairo_move_to(scene.context, 0, scene.height);
        cairo_line_to(scene.context, 0, base);
        for (double x = 0; x < scene.width;) {
            double length = scene.unit * scene.random.between(0.15, 0.5);
            double rise = scene.random.below(3) == 0 ? 0 : scene.unit * scene.random.between(0.08, 0.24);
            cairo_line_to(scene.context, x + length * 0.12, base - rise);
            cairo_line_to(scene.context, x + length * 0.88, base - rise);
            cairo_line_to(scene.context, x + length, base);
            x += length;
        }
        cairo_line_to(scene.context, scene.width + 2, scene.height);
        cairo_close_path(scene.context);
        setTint(scene.context, blended(scene.look.main, scene.look.deep, 0.35 + 0.45 * layer));
        cairo_fill(scene.context);
    }
    setLinear(scene.context, {0, horizon + scene.unit * 0.06}, {0, scene.height},
              {{0, blended(scene.look.warm, scene.look.main, 0.5)}, {1, scene.look.deep}});
    cairo_rectangle(scene.context, 0, horizon + scene.unit * 0.06, scene.width, scene.height);
    cairo_fill(scene.context);
}

void paintSnowScene(Scene& scene) {
    double horizon = scene.height * 0.72;
    paintSky(scene, horizon * 1.3);
    paintStars(scene, horizon * 0.6, static_cast<int>(40 * scene.width / scene.unit));
    cairo_set_operator(scene.context, CAIRO_OPERATOR_SCREEN);
    for (int ribbon = 0; ribbon < 3; ++ribbon) {
        double phase = scene.random.between(0, 9);
        for (double x = 0; x < scene.width; x += 3) {
            double top = scene.height * (0.12 + 0.08 * ribbon + 0.07 * ridge(x / scene.unit * 1.6, phase, 1));
            double length = scene.unit * (0.3 + 0.12 * std::sin(x / scene.unit * 9 + phase));
            setLinear(scene.context, {0, top}, {0, top + length},
                      {{0, scene.look.accent, 0}, {0.25, scene.look.accent, 0.22}, {1, scene.look.warm, 0}});
            cairo_rectangle(scene.context, x, top, 3, length);
            cairo_fill(scene.context);
        }
    }
    cairo_set_operator(scene.context, CAIRO_OPERATOR_OVER);
    for (int peak = 0; peak < 9; ++peak) {
        double x = scene.width * (peak + scene.random.between(-0.4, 0.4)) / 8;
        double rise = scene.unit * scene.random.between(0.22, 0.5);
        auto slope = [&](double left, double right, Tint tint) {
            cairo_move_to(scene.context, x, horizon - rise);
            cairo_line_to(scene.context, x + left * rise, horizon);
            cairo_line_to(scene.context, x + right * rise, horizon);
            cairo_close_path(scene.context);
            setTint(scene.context, tint);
            cairo_fill(scene.context);
        };
        slope(-0.8, 0.1, blended(scene.look.main, white, 0.55));
        slope(0.1, 0.8, blended(scene.look.main, scene.look.deep, 0.45));
    }
    setLinear(scene.context, {0, horizon}, {0, scene.height},
              {{0, blended(scene.look.main, white, 0.85)}, {1, blended(scene.look.main, white, 0.2)}});
    cairo_rectangle(scene.context, 0, horizon, scene.width, scene.height);
    cairo_fill(scene.context);
    paintStars(scene, scene.height, static_cast<int>(60 * scene.width / scene.unit));
}

void paintSpaceScene(Scene& scene) {
    setLinear(scene.context, {0, 0}, {scene.width, scene.height},
              {{0, blended(scene.look.deep, black, 0.75)}, {1, blended(scene.look.deep, black, 0.35)}});
    fillAll(scene);
    for (int cloud = 0; cloud < 14; ++cloud) {
        double along = scene.random.between(-0.1, 1.1);
        double x = scene.width * along;
        double y = scene.height * (0.85 - 0.7 * along + scene.random.between(-0.25, 0.25));
        const Tint tint = cloud % 3 == 0 ? scene.look.warm : scene.look.main;
        paintGlow(scene, {x, y}, scene.unit * scene.random.between(0.25, 0.7), tint, 0.34);
    }
    paintStars(scene, scene.height, static_cast<int>(90 * scene.width / scene.unit));
    double radius = scene.unit * 0.34;
    Point planet{scene.width * (scene.look.seed % 2 == 0 ? 0.86 : 0.14), scene.height * 0.34};
    paintGlow(scene, planet, radius * 1.7, scene.look.accent, 0.5);
    setRadial(scene.context, {planet.x - radius * 0.45, planet.y - radius * 0.5}, radius * 1.7,
              {{0, blended(scene.look.accent, white, 0.55)},
               {0.45, scene.look.accent},
               {1, blended(scene.look.deep, black, 0.6)}});
    addCircle(scene.context, planet.x, planet.y, radius);
    cairo_fill(scene.context);
    cairo_save(scene.context);
    cairo_translate(scene.context, planet.x, planet.y);
    cairo_rotate(scene.context, -0.35);
    cairo_scale(scene.context, 1, 0.24);
    cairo_set_line_width(scene.context, radius * 0.16);
    for (int ring = 0; ring < 3; ++ring) {
        setTint(scene.context, blended(scene.look.warm, white, 0.3 * ring), 0.65 - 0.15 * ring);
        cairo_arc(scene.context, 0, 0, radius * (1.42 + 0.2 * ring), -0.35, fullTurn / 2 + 0.35);
        cairo_stroke(scene.context);
    }
    cairo_restore(scene.context);
}

void paintSeaScene(Scene& scene) {
    double horizon = scene.height * 0.56;
    paintSky(scene, horizon);
    paintStars(scene, horizon * 0.6, static_cast<int>(30 * scene.width / scene.unit));
    double sunX = scene.width * scene.random.between(0.35, 0.65);
    paintSun(scene, {sunX, horizon * 0.9}, scene.unit * 0.22, false);
    setLinear(scene.context, {0, horizon}, {0, scene.height},
              {{0, blended(scene.look.main, scene.look.warm, 0.35)}, {1, scene.look.deep}});
    cairo_rectangle(scene.context, 0, horizon, scene.width, scene.height);
    cairo_fill(scene.context);
    for (int glint = 0; glint < 46; ++glint) {
        double down = scene.random.between(0, 1);
        double length = scene.unit * scene.random.between(0.04, 0.2) * (0.5 + down);
        setTint(scene.context, blended(scene.look.warm, white, 0.4), 0.55 * (1.1 - down));
        cairo_rectangle(scene.context, sunX - length / 2 + scene.unit * scene.random.between(-0.14, 0.14),
                        horizon + down * scene.height * 0.3, length, scene.unit * 0.008);
        cairo_fill(scene.context);
    }
    constexpr int waves = 4;
    for (int wave = 0; wave < waves; ++wave) {
        double base = horizon + (scene.height - horizon) * (0.28 + 0.21 * wave);
        double length = scene.unit * (0.2 + 0.05 * wave);
        double start = -length * scene.random.between(0.2, 1);
        cairo_move_to(scene.context, start, scene.height + length);
        cairo_line_to(scene.context, start, base);
        for (double x = start; x < scene.width + length; x += length) {
            cairo_curve_to(scene.context, x + length * 0.4, base, x + length * 0.75, base - length * 0.3,
                           x + length, base - (wave % 2 == 0 ? length * 0.06 : 0));
        }
        cairo_line_to(scene.context, scene.width + length * 2, scene.height + length);
        cairo_close_path(scene.context);
        Tint tint = blended(scene.look.main, scene.look.deep, 0.25 + 0.22 * wave);
        setLinear(scene.context, {0, base - length * 0.3}, {0, base + length},
                  {{0, blended(tint, white, 0.3)}, {0.12, tint}, {1, blended(tint, black, 0.4)}});
        cairo_fill_preserve(scene.context);
        cairo_set_line_width(scene.context, scene.unit * 0.007);
        setTint(scene.context, white, 0.55);
        cairo_stroke(scene.context);
    }
}

void paintHouseRow(Scene& scene, double base, double tallest, Tint wall, double lit) {
    for (double x = -scene.unit * 0.05; x < scene.width;) {
        double broad = scene.unit * scene.random.between(0.08, 0.2);
        double rise = tallest * scene.random.between(0.45, 1);
        setLinear(scene.context, {0, base - rise}, {0, base},
                  {{0, wall}, {1, blended(wall, scene.look.main, 0.3)}});
        cairo_rectangle(scene.context, x, base - rise, broad, rise + scene.height);
        cairo_fill(scene.context);
        if (scene.random.below(3) == 0) {
            cairo_rectangle(scene.context, x + broad * 0.46, base - rise - scene.unit * 0.06, broad * 0.06,
                            scene.unit * 0.06);
            cairo_fill(scene.context);
        }
        double cell = scene.unit * 0.026;
        for (double down = base - rise + cell; lit > 0 && down < scene.height; down += cell * 1.5) {
            for (double across = x + cell * 0.6; across < x + broad - cell; across += cell * 1.2) {
                if (scene.random.between(0, 1) > lit) {
                    continue;
                }
                setTint(scene.context, scene.random.below(5) == 0 ? scene.look.accent : scene.look.warm,
                        scene.random.between(0.45, 1));
                cairo_rectangle(scene.context, across, down, cell * 0.7, cell);
                cairo_fill(scene.context);
            }
        }
        x += broad + scene.unit * scene.random.between(0, 0.03);
    }
}

void paintCityScene(Scene& scene) {
    paintSky(scene, scene.height * 0.85);
    paintStars(scene, scene.height * 0.4, static_cast<int>(30 * scene.width / scene.unit));
    paintSun(scene, {scene.width * scene.random.between(0.2, 0.8), scene.height * 0.3}, scene.unit * 0.16,
             false);
    paintHouseRow(scene, scene.height * 0.8, scene.unit * 0.62,
                  blended(scene.look.main, scene.look.deep, 0.45), 0);
    paintHouseRow(scene, scene.height * 0.9, scene.unit * 0.55,
                  blended(scene.look.main, scene.look.deep, 0.8), 0.3);
    paintHouseRow(scene, scene.height * 1.05, scene.unit * 0.5, blended(scene.look.deep, black, 0.6), 0.42);
    paintGlow(scene, {scene.width * 0.5, scene.height}, scene.width * 0.5, scene.look.accent, 0.3);
}

void paintRoadScene(Scene& scene) {
    double horizon = scene.height * 0.5;
    paintSky(scene, horizon);
    paintSun(scene, {scene.width * 0.5, horizon * 0.82}, scene.unit * 0.3, true);
    double phase = scene.random.between(0, 9);
    cairo_move_to(scene.context, 0, horizon);
    for (double x = 0; x <= scene.width + 6; x += 6) {
        cairo_line_to(scene.context, x,
                      horizon - scene.unit * (0.1 + 0.1 * ridge(x / scene.unit * 3, phase, 1.6)));
    }
    cairo_line_to(scene.context, scene.width, horizon);
    cairo_close_path(scene.context);
    setTint(scene.context, blended(scene.look.deep, scene.look.main, 0.25));
    cairo_fill(scene.context);
    Point vanishing{scene.width * 0.5, horizon};
    double near = 0;
    for (int strip = 0; strip < 40; ++strip) {
        double next = std::pow((strip + 1) / 40.0, 2.6);
        double top = horizon + near * (scene.height - horizon);
        double bottom = horizon + next * (scene.height - horizon) + 0.7;
        bool light = strip % 2 == 0;
        auto trapezoid = [&](double halfWidth, Tint tint) {
            cairo_move_to(scene.context, vanishing.x - halfWidth * near - scene.unit * 0.01, top);
            cairo_line_to(scene.context, vanishing.x + halfWidth * near + scene.unit * 0.01, top);
            cairo_line_to(scene.context, vanishing.x + halfWidth * next + scene.unit * 0.01, bottom);
            cairo_line_to(scene.context, vanishing.x - halfWidth * next - scene.unit * 0.01, bottom);
            cairo_close_path(scene.context);
            setTint(scene.context, tint);
            cairo_fill(scene.context);
        };
        double road = std::max(scene.width * 0.46, scene.unit * 0.6);
        setTint(scene.context, blended(scene.look.main, scene.look.deep, light ? 0.3 : 0.55));
        cairo_rectangle(scene.context, 0, top, scene.width, bottom - top);
        cairo_fill(scene.context);
        trapezoid(road * 1.1, light ? white : Tint{0.8, 0.1, 0.15});
        trapezoid(road, light ? Tint{0.23, 0.23, 0.27} : Tint{0.2, 0.2, 0.24});
        if (light) {
            trapezoid(road * 0.035, Tint{1, 0.93, 0.7});
        }
        near = next;
    }
}

void paintStageScene(Scene& scene) {
    double floor = scene.height * 0.8;
    setLinear(scene.context, {0, 0}, {0, scene.height},
              {{0, scene.look.deep}, {1, blended(scene.look.deep, black, 0.5)}});
    fillAll(scene);
    double fold = scene.unit * 0.13;
    for (double x = -fold * scene.random.between(0, 1); x < scene.width; x += fold) {
        setLinear(scene.context, {x, 0}, {x + fold, 0},
                  {{0, blended(scene.look.main, black, 0.72)},
                   {0.35, scene.look.main},
                   {0.55, blended(scene.look.main, white, 0.2)},
                   {1, blended(scene.look.main, black, 0.72)}});
        cairo_rectangle(scene.context, x, 0, fold + 1, floor);
        cairo_fill(scene.context);
    }
    setLinear(scene.context, {0, floor}, {0, scene.height},
              {{0, Tint{0.55, 0.34, 0.18}}, {1, Tint{0.2, 0.1, 0.06}}});
    cairo_rectangle(scene.context, 0, floor, scene.width, scene.height);
    cairo_fill(scene.context);
    cairo_set_line_width(scene.context, scene.unit * 0.005);
    setTint(scene.context, black, 0.4);
    for (int plank = -14; plank <= 14; ++plank) {
        cairo_move_to(scene.context, scene.width * (0.5 + plank * 0.06), floor);
        cairo_line_to(scene.context, scene.width * (0.5 + plank * 0.11), scene.height);
        cairo_stroke(scene.context);
    }
    cairo_set_operator(scene.context, CAIRO_OPERATOR_SCREEN);
    for (int lamp = 0; lamp < 3; ++lamp) {
        double top = scene.width * (0.15 + 0.35 * lamp);
        double foot = scene.width * 0.5 + (top - scene.width * 0.5) * 0.25;
        const Tint light = lamp == 1 ? scene.look.warm : scene.look.accent;
        setLinear(scene.context, {0, 0}, {0, scene.height}, {{0, light, 0.75}, {1, light, 0.12}});
        cairo_move_to(scene.context, top, -scene.unit * 0.1);
        cairo_line_to(scene.context, foot - scene.unit * 0.34, scene.height);
        cairo_line_to(scene.context, foot + scene.unit * 0.34, scene.height);
        cairo_close_path(scene.context);
        cairo_fill(scene.context);
    }
    cairo_set_operator(scene.context, CAIRO_OPERATOR_OVER);
}

void paintSunburst(Scene& scene) {
    Point centre{scene.width * 0.5, scene.height * 0.6};
    double reach = std::hypot(scene.width, scene.height);
    setRadial(scene.context, centre, reach * 0.6,
              {{0, blended(scene.look.warm, white, 0.35)}, {0.5, scene.look.main}, {1, scene.look.deep}});
    fillAll(scene);
    constexpr int rays = 18;
    setRadial(scene.context, centre, reach * 0.6,
              {{0, scene.look.warm},
               {0.55, blended(scene.look.warm, scene.look.main, 0.35)},
               {1, scene.look.main}});
    for (int ray = 0; ray < rays; ++ray) {
        double angle = fullTurn * ray / rays + scene.look.hue;
        cairo_move_to(scene.context, centre.x, centre.y);
        cairo_line_to(scene.context, centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle));
        cairo_line_to(scene.context, centre.x + reach * std::cos(angle + fullTurn / rays / 2),
                      centre.y + reach * std::sin(angle + fullTurn / rays / 2));
        cairo_close_path(scene.context);
    }
    cairo_fill(scene.context);
    double pitch = scene.unit * 0.035;
    setTint(scene.context, scene.look.deep, 0.5);
    for (int row = 0; row * pitch * 0.87 < scene.height + pitch; ++row) {
        for (double x = row % 2 * pitch / 2; x < scene.width + pitch; x += pitch) {
            double y = row * pitch * 0.87;
            double away = std::hypot((x - centre.x) / scene.width, (y - centre.y) / scene.height);
            double radius = pitch * 0.62 * std::clamp((away - 0.3) * 2.2, 0.0, 0.8);
            if (radius > 0.4) {
                addCircle(scene.context, x, y, radius);
            }
        }
    }
    cairo_fill(scene.context);
}

void paintWireScene(Scene& scene) {
    Tint beam = scene.look.warm;
    auto bits = [](double share) { return static_cast<Colour>(share * 255); };
    Colour colour = bits(beam.red) << 16 | bits(beam.green) << 8 | bits(beam.blue);
    cairo_save(scene.context);
    drawVectorScene(scene.context, scene.look.seed, colour, {scene.look.hue * 20, 0.9, 0}, scene.width,
                    scene.height);
    cairo_restore(scene.context);
    paintStars(scene, scene.height * 0.66, static_cast<int>(40 * scene.width / scene.unit));
    paintGlow(scene, {scene.width / 2, scene.height * 0.66}, scene.width * 0.5, scene.look.main, 0.6);
}

} // namespace

void paintScenery(cairo_t* context, const GameLook& look, double width, double height) {
    constexpr std::array painters = {paintSunburst,  paintSpaceScene, paintSeaScene,   paintCityScene,
                                     paintHillScene, paintRoadScene,  paintStageScene, paintDesertScene,
                                     paintSnowScene, paintWireScene};
    Scene scene{context, look, width, height, std::min(width, height), SeededRandom(look.seed)};
    cairo_save(context);
    cairo_rectangle(context, 0, 0, width, height);
    cairo_clip(context);
    painters[static_cast<std::size_t>(look.scenery)](scene);
    cairo_restore(context);
}
