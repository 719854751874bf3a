// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/lettering.h"

#include <array>
#include <cmath>
#include <numbers>
#include <sstream>
#include <vector>

namespace {

enum class Bend { arch, rise, bulge, wave };

struct Ring {
    double width; // of the stroke, in heights of the letters
    Tint tint;
};

struct Style {
    const char* face;
    cairo_font_slant_t slant;
    bool capitals;
    Bend bend;
    bool glows;
    double depth; // of the extrusion, in heights of the letters
    Tint depthTint;
    std::vector<Ring> rings;   // from the outside in
    std::array<Tint, 4> bands; // of the letters: top, above the middle, below it, foot
};

// clang-format off
Style styleOf(const GameLook& look) {
    constexpr auto upright = CAIRO_FONT_SLANT_NORMAL;
    constexpr auto italic = CAIRO_FONT_SLANT_ITALIC;
    constexpr Tint fire{0.93, 0.16, 0.1};
    constexpr Tint golden{1, 0.76, 0.16};
    constexpr Tint cream{1, 0.96, 0.82};
    const Tint ink = blended(look.deep, black, 0.6);
    switch (look.lettering) {
    case Lettering::rainbow:
        return {"DejaVu Sans", upright, true, Bend::arch, false, 0, ink,
                {{0.62, ink}, {0.5, {0.85, 0.2, 0.13}}, {0.37, {0.96, 0.53, 0.1}}, {0.24, golden}, {0.11, ink}},
                {cream, cream, cream, cream}};
    case Lettering::chrome:
        return {"Liberation Sans", italic, true, Bend::rise, false, 0.1, blended(look.main, ink, 0.6),
                {{0.24, ink}, {0.12, look.warm}},
                {Tint{0.45, 0.72, 1}, white, blended(look.deep, {0.1, 0.1, 0.3}, 0.5), blended(look.warm, white, 0.35)}};
    case Lettering::fire:
        return {"Liberation Sans", italic, true, Bend::bulge, false, 0.14, {0.35, 0.02, 0.05},
                {{0.26, black}, {0.12, white}},
                {Tint{1, 0.98, 0.55}, golden, {1, 0.5, 0.06}, fire}};
    case Lettering::neon:
        return {"Liberation Sans Narrow", italic, true, Bend::wave, true, 0, ink,
                {{0.2, ink}, {0.1, look.accent}},
                {white, blended(look.warm, white, 0.6), look.warm, blended(look.warm, look.accent, 0.4)}};
    case Lettering::storybook:
        return {"Liberation Serif", italic, false, Bend::arch, false, 0.06, {0.28, 0.12, 0.05},
                {{0.24, ink}, {0.1, golden}},
                {cream, cream, blended(look.warm, cream, 0.45), look.warm}};
    case Lettering::comic:
        return {"DejaVu Sans Condensed", upright, true, Bend::bulge, false, 0.12, ink,
                {{0.3, ink}, {0.15, white}},
                {blended(look.accent, white, 0.5), look.accent, look.accent, blended(look.accent, fire, 0.4)}};
    case Lettering::gold:
    default:
        return {"Liberation Sans", upright, true, Bend::arch, false, 0.12, {0.4, 0.05, 0.08},
                {{0.28, ink}, {0.13, {0.75, 0.1, 0.12}}},
                {Tint{1, 1, 0.86}, {1, 0.87, 0.35}, golden, {0.9, 0.42, 0.08}}};
    }
}
// clang-format on

double lengthOf(cairo_t* context, const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, text.c_str(), &extents);
    return extents.x_advance;
}

std::vector<std::string> brokenLines(cairo_t* context, const std::string& text, double limit) {
    std::vector<std::string> lines(1);
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        std::string longer = lines.back().empty() ? word : lines.back() + " " + word;
        if (lines.back().empty() || lengthOf(context, longer) <= limit) {
            lines.back() = longer;
        } else {
            lines.push_back(word);
        }
    }
    return lines;
}

constexpr double linePitch = 0.98; // in font sizes
constexpr double capitalHeight = 0.73;

// Sets the largest font size that fits and returns the lines.
std::vector<std::string> fitLines(cairo_t* context, const std::string& text, const Box& box, double& size) {
    std::vector<std::string> lines;
    for (size = box.height * 1.2; size > 5; size *= 0.95) {
        cairo_set_font_size(context, size);
        lines = brokenLines(context, text, box.width);
        double rows = static_cast<double>(lines.size()) - 1;
        bool fits = (rows * linePitch + capitalHeight) * size <= box.height;
        for (const std::string& line : lines) {
            fits = fits && lengthOf(context, line) <= box.width;
        }
        if (fits) {
            break;
        }
    }
    return lines;
}

Point bent(Point point, Bend bend, const Box& box) {
    double across = (point.x - box.x - box.width / 2) / (box.width / 2);
    double middle = box.y + box.height / 2;
    switch (bend) {
    case Bend::arch:
        return {point.x, point.y + box.height * 0.16 * (across * across - 0.4)};
    case Bend::rise:
        return {point.x, middle + (point.y - middle) * (1 + 0.2 * across) - box.height * 0.05 * across};
    case Bend::bulge:
        return {point.x, middle + (point.y - middle) * (1.1 - 0.28 * across * across)};
    case Bend::wave:
        return {point.x, point.y + box.height * 0.07 * std::sin(across * std::numbers::pi)};
    }
    return point;
}

// The outlines of one line of letters, bent into an arc.
class LetterPath {
public:
    LetterPath(cairo_t* context, const std::string& text, Point start, Bend bend, const Box& box) {
        cairo_new_path(context);
        cairo_move_to(context, start.x, start.y);
        cairo_text_path(context, text.c_str());
        path_ = cairo_copy_path(context);
        cairo_new_path(context);
        for (int i = 0; i < path_->num_data; i += path_->data[i].header.length) {
            for (int point = 1; point < path_->data[i].header.length; ++point) {
                auto& place = path_->data[i + point].point;
                Point moved = bent({place.x, place.y}, bend, box);
                place.x = moved.x;
                place.y = moved.y;
            }
        }
    }
    ~LetterPath() { cairo_path_destroy(path_); }
    LetterPath(const LetterPath&) = delete;
    LetterPath& operator=(const LetterPath&) = delete;

    void add(cairo_t* context) const { cairo_append_path(context, path_); }

private:
    cairo_path_t* path_;
};

using LetterPaths = std::vector<std::unique_ptr<LetterPath>>;

void addAll(cairo_t* context, const LetterPaths& paths) {
    cairo_new_path(context);
    for (const auto& path : paths) {
        path->add(context);
    }
}

void paintBehind(cairo_t* context, const Style& style, const LetterPaths& paths, double size) {
    double broad = style.rings.front().width * size;
    cairo_save(context);
    cairo_translate(context, size * 0.05, size * (0.07 + style.depth));
    addAll(context, paths);
    cairo_restore(context);
    cairo_set_line_width(context, broad * 1.2);
    setTint(context, black, 0.4);
    cairo_stroke(context);
    if (style.glows) {
        cairo_set_operator(context, CAIRO_OPERATOR_SCREEN);
        for (double width : {0.9, 0.65, 0.42}) {
            addAll(context, paths);
            cairo_set_line_width(context, size * width);
            setTint(context, style.rings.back().tint, 0.22);
            cairo_stroke(context);
        }
        cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    }
    int steps = static_cast<int>(std::ceil(size * style.depth / 1.5));
    for (int step = steps; step > 0; --step) {
        cairo_save(context);
        cairo_translate(context, 0, size * style.depth * step / steps);
        addAll(context, paths);
        cairo_restore(context);
        cairo_set_line_width(context, broad * 0.9);
        setTint(context, blended(style.depthTint, black, 0.5 * step / steps));
        cairo_stroke(context);
    }
}

void paintFill(cairo_t* context, const Style& style, const LetterPath& path, double baseline, double size) {
    double top = baseline - size * capitalHeight;
    setLinear(context, {0, top}, {0, baseline + size * 0.05},
              {{0, style.bands[0]}, {0.5, style.bands[1]}, {0.54, style.bands[2]}, {1, style.bands[3]}});
    cairo_new_path(context);
    path.add(context);
    cairo_fill_preserve(context);
    cairo_save(context);
    cairo_clip(context);
    setLinear(context, {0, top}, {0, top + size * 0.4}, {{0, white, 0.5}, {1, white, 0}});
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace

std::string inCapitals(const std::string& text) {
    std::string result = text;
    for (std::size_t i = 0; i < result.size(); ++i) {
        auto byte = static_cast<unsigned char>(result[i]);
        auto before = static_cast<unsigned char>(i > 0 ? result[i - 1] : '\0');
        bool latinSmall = before == 0xC3 && byte >= 0xA0 && byte <= 0xBE;
        bool macronSmall = before == 0xC5 && byte % 2 == 1;
        if (byte >= 'a' && byte <= 'z') {
            result[i] = static_cast<char>(byte - 'a' + 'A');
        } else if (latinSmall || macronSmall) {
            result[i] = static_cast<char>(byte - (latinSmall ? 0x20 : 1));
        }
    }
    return result;
}

void paintLogo(cairo_t* context, const GameLook& look, const Box& box) {
    Style style = styleOf(look);
    // Leaves room for the outlines, the extrusion and the bend.
    Box inner{box.x + box.width * 0.04, box.y + box.height * 0.11, box.width * 0.92, box.height * 0.74};
    cairo_save(context);
    cairo_select_font_face(context, style.face, style.slant, CAIRO_FONT_WEIGHT_BOLD);
    double size = 0;
    std::string text = style.capitals ? inCapitals(look.title) : look.title;
    std::vector<std::string> lines = fitLines(context, text, inner, size);
    double rows = static_cast<double>(lines.size()) - 1;
    double first = inner.y + (inner.height - rows * linePitch * size + capitalHeight * size) / 2;
    LetterPaths paths;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double x = inner.x + (inner.width - lengthOf(context, lines[i])) / 2;
        Point start{x, first + static_cast<double>(i) * linePitch * size};
        paths.push_back(std::make_unique<LetterPath>(context, lines[i], start, style.bend, inner));
    }
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    paintBehind(context, style, paths, size);
    for (const Ring& ring : style.rings) {
        addAll(context, paths);
        cairo_set_line_width(context, ring.width * size);
        setTint(context, ring.tint);
        cairo_stroke(context);
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        paintFill(context, style, *paths[i], first + static_cast<double>(i) * linePitch * size, size);
    }
    cairo_restore(context);
}

void paintLine(cairo_t* context, const std::string& text, Point baseline, double share, double size,
               double limit, Tint tint) {
    cairo_set_font_size(context, size);
    double length = lengthOf(context, text);
    if (length > limit) {
        cairo_set_font_size(context, size * limit / length);
        length = limit;
    }
    cairo_move_to(context, baseline.x - length * share, baseline.y);
    setTint(context, tint);
    cairo_show_text(context, text.c_str());
}
