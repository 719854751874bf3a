// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/cabinet_picture.h"

#include "art/hero.h"
#include "art/marquee.h"
#include "art/scenery.h"

#include <algorithm>
#include <array>

namespace {

// A corner of the side panel's outline: depth from the front of the body (0) to its back (1), height as a
// fraction of the cabinet's height.
struct Corner {
    double depth;
    double rise;
};

enum Edge : std::size_t {
    footFront,
    shelfFoot,
    shelfLip,
    panelFoot,
    tubeTop,
    signFoot,
    signTop,
    topBack,
    footBack
};

using Profile = std::array<Corner, 9>;

constexpr Profile uprightProfile = {{{0.04, 0},
                                     {0.04, 0.4},
                                     {-0.3, 0.43},
                                     {-0.26, 0.47},
                                     {0.3, 0.8},
                                     {0.06, 0.84},
                                     {0.06, 0.985},
                                     {1, 1},
                                     {1, 0}}};
constexpr Profile lowProfile = {{{0.1, 0},
                                 {0.1, 0.36},
                                 {-0.34, 0.4},
                                 {-0.3, 0.44},
                                 {0.22, 0.82},
                                 {0.02, 0.85},
                                 {0.1, 0.96},
                                 {1, 1},
                                 {1, 0}}};

struct Body {
    const Profile& profile;
    double left; // of the front, at depth 0
    double foot;
    double frontWidth; // of the front
    double bodyHeight;
    Point backwards; // offset of depth 1 on the picture
    Tint colour;

    Point at(Edge edge, bool right) const {
        const Corner& corner = profile[edge];
        return {left + (right ? frontWidth : 0) + corner.depth * backwards.x,
                foot - corner.rise * bodyHeight + corner.depth * backwards.y};
    }
};

// While it exists, drawing goes to the part of the front between two edges, with coordinates of a flat sheet
// of the given size.
class Sheet {
public:
    Sheet(cairo_t* drawing, const Body& body, Edge upper, Edge lower, double width, double height)
        : context_(drawing) {
        Point start = body.at(upper, false);
        Point end = body.at(lower, false);
        cairo_save(context_);
        cairo_matrix_t matrix;
        cairo_matrix_init(&matrix, body.frontWidth / width, 0, (end.x - start.x) / height,
                          (end.y - start.y) / height, start.x, start.y);
        cairo_transform(context_, &matrix);
        cairo_rectangle(context_, 0, 0, width, height);
        cairo_clip(context_);
    }
    ~Sheet() { cairo_restore(context_); }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

private:
    cairo_t* context_;
};

void paintRoom(cairo_t* context, const GameLook& look, double width, double height) {
    double floor = height * 0.86;
    setRadial(context, {width * 0.5, height * 0.4}, height * 0.62,
              {{0, blended(look.main, look.deep, 0.35)}, {1, blended(look.deep, black, 0.7)}});
    cairo_rectangle(context, 0, 0, width, height);
    cairo_fill(context);
    setLinear(context, {0, floor}, {0, height},
              {{0, blended(look.deep, black, 0.6)}, {1, blended(look.main, look.deep, 0.4)}});
    cairo_rectangle(context, 0, floor, width, height);
    cairo_fill(context);
    // A patterned carpet.
    SeededRandom random(look.seed);
    for (int figure = 0; figure < 46; ++figure) {
        double near = random.between(0.05, 1);
        setTint(context, figure % 2 == 0 ? look.warm : look.accent, 0.16 + 0.25 * near);
        cairo_save(context);
        cairo_translate(context, random.between(0, width), floor + near * (height - floor));
        cairo_scale(context, 1, 0.35);
        addCircle(context, 0, 0, width * 0.006 * (1 + 2 * near));
        cairo_restore(context);
        cairo_fill(context);
    }
    cairo_save(context);
    cairo_translate(context, width * 0.54, height * 0.925);
    cairo_scale(context, 1, 0.16);
    setRadial(context, {0, 0}, width * 0.47, {{0, black, 0.95}, {0.6, black, 0.7}, {1, black, 0}});
    addCircle(context, 0, 0, width * 0.47);
    cairo_fill(context);
    cairo_restore(context);
}

void addSide(cairo_t* context, const Body& body) {
    for (std::size_t edge = footFront; edge <= footBack; ++edge) {
        Point corner = body.at(static_cast<Edge>(edge), true);
        cairo_line_to(context, corner.x, corner.y);
    }
    cairo_close_path(context);
}

void paintSide(cairo_t* context, const GameLook& look, const Body& body) {
    Point front = body.at(shelfLip, true);
    Point back = body.at(topBack, true);
    cairo_save(context);
    addSide(context, body);
    cairo_clip(context);
    cairo_save(context);
    cairo_translate(context, front.x, back.y);
    cairo_matrix_t shear;
    cairo_matrix_init(&shear, 1, body.backwards.y / body.backwards.x, 0, 1, 0, 0);
    cairo_transform(context, &shear);
    double width = back.x - front.x;
    double height = body.bodyHeight - body.backwards.y * 2;
    paintScenery(context, look, width, height);
    double size = width * 1.05;
    paintCreature(context, look, 0, {width * 0.56, height * 0.72}, size, -1);
    paintCreature(context, look, 1, {width * 0.62, height * 0.93}, size * 0.5, -1);
    cairo_restore(context);
    setLinear(context, {front.x, 0}, {back.x, 0}, {{0, black, 0.1}, {1, black, 0.62}});
    cairo_paint(context);
    cairo_restore(context);
    addSide(context, body);
    cairo_set_line_width(context, body.frontWidth * 0.014);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    setTint(context, look.warm);
    cairo_stroke(context);
}

void paintTubeSheet(cairo_t* context, const GameLook& look, const Body& body, const Picture& tube) {
    constexpr double width = 400;
    constexpr double height = 330;
    Sheet sheet(context, body, tubeTop, panelFoot, width, height);
    setLinear(context, {0, 0}, {0, height}, {{0, {0.02, 0.02, 0.03}}, {1, {0.13, 0.13, 0.15}}});
    cairo_paint(context);
    double scale = std::min((width - 70) / tube.width(), (height - 30) / tube.height());
    bool upright = tube.height() > tube.width();
    double across = upright ? tube.width() * scale : width - 70;
    double down = upright ? height - 30 : std::min(across * 0.75, height - 30);
    double x = (width - across) / 2;
    double y = (height - down) / 2;
    cairo_save(context);
    addRoundedBox(context, x, y, across, down, 14);
    cairo_clip(context);
    cairo_save(context);
    cairo_translate(context, x, y);
    cairo_scale(context, across / tube.width(), down / tube.height());
    cairo_set_source_surface(context, tube.surface(), 0, 0);
    cairo_paint(context);
    cairo_restore(context);
    setLinear(context, {x, y}, {x + across * 0.8, y + down},
              {{0, white, 0.3}, {0.32, white, 0.1}, {0.33, white, 0}, {1, white, 0}});
    cairo_paint(context);
    cairo_restore(context);
    cairo_set_line_width(context, 3);
    setTint(context, look.main, 0.8);
    addRoundedBox(context, x - 4, y - 4, across + 8, down + 8, 16);
    cairo_stroke(context);
}

void paintButton(cairo_t* context, double x, double y, double radius, Tint tint) {
    setTint(context, black, 0.5);
    addCircle(context, x + 2, y + 4, radius * 1.1);
    cairo_fill(context);
    setRadial(context, {x - radius * 0.3, y - radius * 0.4}, radius * 1.3,
              {{0, blended(tint, white, 0.75)}, {0.5, tint}, {1, blended(tint, black, 0.5)}});
    addCircle(context, x, y, radius);
    cairo_fill(context);
}

void paintControls(cairo_t* context, const DemoGame& game, const GameLook& look, const Body& body) {
    constexpr double width = 400;
    constexpr double height = 90;
    // The control panel is seen from above, from the foot of the screen to the front edge.
    Sheet sheet(context, body, panelFoot, shelfLip, width, height);
    setLinear(context, {0, 0}, {0, height}, {{0, blended(look.deep, black, 0.4)}, {1, look.main}});
    cairo_paint(context);
    int sides = std::clamp(game.control.players, 1, 2);
    for (int side = 0; side < sides; ++side) {
        double x = sides == 1 ? 120 : 50 + 195 * side;
        bool ball = game.control.type == "trackball";
        bool wheel = game.control.type == "dial" || game.control.type == "paddle";
        if (!game.control.type.starts_with("only")) {
            paintButton(context, x, 45, ball ? 36 : (wheel ? 28 : 21),
                        ball ? white : (wheel ? Tint{0.6, 0.6, 0.65} : Tint{0.9, 0.12, 0.12}));
        }
        for (int button = 0; button < std::min(game.control.buttons, 6); ++button) {
            paintButton(context, x + 62 + button % 3 * 36, button < 3 ? 30 : 66, 13,
                        tintOf(look.hue + 0.5 + 0.17 * button, 0.75, 1));
        }
    }
}

void paintFront(cairo_t* context, const GameLook& look, const Body& body) {
    constexpr double width = 400;
    constexpr double height = 480;
    Sheet sheet(context, body, shelfFoot, footFront, width, height);
    setLinear(
        context, {0, 0}, {width, 0},
        {{0, blended(body.colour, black, 0.35)}, {0.4, body.colour}, {1, blended(body.colour, black, 0.25)}});
    cairo_paint(context);
    for (int stripe = 0; stripe < 3; ++stripe) {
        setTint(context, stripe == 0 ? look.warm : (stripe == 1 ? look.accent : look.main));
        cairo_move_to(context, 0, 330 + stripe * 26);
        cairo_line_to(context, width, 250 + stripe * 26);
        cairo_line_to(context, width, 268 + stripe * 26);
        cairo_line_to(context, 0, 348 + stripe * 26);
        cairo_close_path(context);
        cairo_fill(context);
    }
    setLinear(context, {100, 60}, {300, 260}, {{0, {0.3, 0.3, 0.33}}, {1, {0.08, 0.08, 0.1}}});
    addRoundedBox(context, 105, 60, 190, 210, 10);
    cairo_fill_preserve(context);
    cairo_set_line_width(context, 4);
    setTint(context, {0.45, 0.45, 0.48});
    cairo_stroke(context);
    for (double x : {135.0, 215.0}) {
        setRadial(context, {x + 25, 115}, 48,
                  {{0, {1, 0.85, 0.5}}, {0.5, {1, 0.35, 0.12}}, {1, {0.35, 0.04, 0.02}}});
        addRoundedBox(context, x, 90, 50, 50, 6);
        cairo_fill(context);
        setTint(context, black);
        cairo_rectangle(context, x + 22, 98, 6, 34);
        cairo_fill(context);
    }
    setTint(context, black, 0.7);
    addRoundedBox(context, 160, 185, 80, 44, 5);
    cairo_fill(context);
    setLinear(context, {0, 0}, {0, height},
              {{0, black, 0.65}, {0.18, black, 0}, {0.7, black, 0}, {1, black, 0.55}});
    cairo_paint(context);
}

void paintPlainSheets(cairo_t* context, const Body& body) {
    {
        Sheet top(context, body, topBack, signTop, 10, 10);
        setTint(context, blended(body.colour, white, 0.12));
        cairo_paint(context);
    }
    {
        Sheet underSign(context, body, signFoot, tubeTop, 10, 10);
        setTint(context, blended(body.colour, black, 0.85));
        cairo_paint(context);
    }
    Sheet lip(context, body, shelfLip, shelfFoot, 10, 10);
    setTint(context, blended(body.colour, black, 0.6));
    cairo_paint(context);
}

} // namespace

void paintCabinet(cairo_t* context, const DemoGame& game, const GameLook& look, const Picture& tube,
                  double width, double height) {
    bool pale = game.manufacturer.starts_with("Moko") || game.manufacturer.starts_with("Zembo");
    bool low = look.era == Era::nineties || look.era == Era::modern;
    Body body{low ? lowProfile : uprightProfile,
              width * 0.14,
              height * 0.945,
              width * (low ? 0.5 : 0.46),
              height * (low ? 0.8 : 0.84),
              {width * 0.27, -height * 0.05},
              pale ? Tint{0.86, 0.86, 0.84} : blended(look.deep, {0.05, 0.05, 0.07}, 0.45)};
    paintRoom(context, look, width, height);
    paintPlainSheets(context, body);
    paintFront(context, look, body);
    paintTubeSheet(context, look, body, tube);
    paintControls(context, game, look, body);
    {
        Sheet sign(context, body, signTop, signFoot, 1000, 310);
        paintMarquee(context, look, 1000, 310);
    }
    paintSide(context, look, body);
    Point glow = body.at(signFoot, false);
    cairo_set_operator(context, CAIRO_OPERATOR_SCREEN);
    setRadial(context, {glow.x + body.frontWidth / 2, glow.y - height * 0.05}, width * 0.55,
              {{0, look.warm, 0.32}, {1, look.warm, 0}});
    cairo_paint(context);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    shadeCorners(context, width, height, 0.55);
}
