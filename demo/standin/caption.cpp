// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/caption.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr const char* fontFace = "Liberation Sans";

double lengthOf(cairo_t* context, const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, text.c_str(), &extents);
    return extents.x_advance;
}

// Breaks the text at blanks into lines of at most that width in the current font; a longer word gets its own
// line.
std::vector<std::string> brokenIntoLines(cairo_t* context, std::string_view text, double lineWidth) {
    std::vector<std::string> lines(1);
    std::istringstream words{std::string(text)};
    for (std::string word; words >> word;) {
        std::string longer = lines.back().empty() ? word : lines.back() + " " + word;
        if (lines.back().empty() || lengthOf(context, longer) <= lineWidth) {
            lines.back() = longer;
        } else {
            lines.push_back(word);
        }
    }
    return lines;
}

// Sets the largest font size in which the text fits the box, and returns its lines.
std::vector<std::string> fitText(cairo_t* context, std::string_view text, double boxWidth, double boxHeight,
                                 double& size) {
    std::vector<std::string> lines;
    for (size = boxHeight * 0.45; size > 10; size *= 0.94) {
        cairo_set_font_size(context, size);
        lines = brokenIntoLines(context, text, boxWidth);
        bool fits = static_cast<double>(lines.size()) * size * 1.1 <= boxHeight;
        for (const std::string& line : lines) {
            fits = fits && lengthOf(context, line) <= boxWidth;
        }
        if (fits) {
            break;
        }
    }
    return lines;
}

// Letters with a dark outline, legible on any scene.
void showEdged(cairo_t* context, double x, double y, const std::string& text, double edge) {
    cairo_move_to(context, x, y);
    cairo_text_path(context, text.c_str());
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(context, edge * 2);
    cairo_set_source_rgb(context, 0.05, 0.02, 0.1);
    cairo_stroke_preserve(context);
}

void drawTitle(cairo_t* context, std::string_view text, double width, double height) {
    cairo_select_font_face(context, fontFace, CAIRO_FONT_SLANT_ITALIC, CAIRO_FONT_WEIGHT_BOLD);
    double size = 0;
    std::vector<std::string> lines = fitText(context, text, width * 0.9, height * 0.92, size);
    double top = (height - static_cast<double>(lines.size()) * size * 1.1) / 2;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double x = (width - lengthOf(context, lines[i])) / 2;
        double baseline = top + (static_cast<double>(i) + 0.9) * size * 1.1;
        showEdged(context, x, baseline, lines[i], size * 0.09);
        cairo_pattern_t* metal =
            cairo_pattern_create_linear(0, baseline - size * 0.75, 0, baseline + size * 0.15);
        cairo_pattern_add_color_stop_rgb(metal, 0.0, 1.0, 0.98, 0.80);
        cairo_pattern_add_color_stop_rgb(metal, 0.55, 1.0, 0.78, 0.16);
        cairo_pattern_add_color_stop_rgb(metal, 1.0, 0.93, 0.30, 0.20);
        cairo_set_source(context, metal);
        cairo_fill(context);
        cairo_pattern_destroy(metal);
    }
}

// One line of small text; `share` 0 is at the left, 0.5 in the middle, 1 at the right.
void drawSmall(cairo_t* context, const std::string& text, double share, double baseline, double width,
               double size) {
    cairo_select_font_face(context, fontFace, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(context, size);
    double margin = size * 0.8;
    double x = margin + (width - 2 * margin - lengthOf(context, text)) * share;
    showEdged(context, x, baseline, text, size * 0.1);
    cairo_set_source_rgb(context, 1, 0.96, 0.86);
    cairo_fill(context);
}

std::string makerLine(const DemoGame& game) {
    std::string result = game.year.empty() ? "" : "© " + std::string(game.year) + " ";
    return result + std::string(game.manufacturer);
}

} // namespace

Caption::Caption(const DemoGame& game, int areaWidth, int areaHeight)
    : width_(areaWidth), height_(areaHeight),
      title_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, areaWidth, areaHeight * 2 / 5)) {
    cairo_t* context = cairo_create(title_.get());
    double titleHeight = height_ * 0.33;
    drawTitle(context, game.description, width_, titleHeight);
    drawSmall(context, makerLine(game), 0.5, titleHeight + height_ * 0.035, width_,
              std::min(width_, height_) * 0.032);
    cairo_destroy(context);
}

void Caption::draw(cairo_t* context, double seconds, int score) const {
    double size = std::min(width_, height_) * 0.034;
    std::string digits = std::to_string(score);
    digits.insert(0, 6 - std::min<std::size_t>(6, digits.size()), '0');
    drawSmall(context, "1UP  " + digits, 0, size * 1.5, width_, size);
    drawSmall(context, "CREDIT  01", 1, size * 1.5, width_, size);
    if (std::fmod(seconds, 1.4) < 1.0) {
        drawSmall(context, "Escape ends the game", 0.5, height_ - size * 0.7, width_, size);
    }
    cairo_set_source_surface(context, title_.get(), 0,
                             height_ * 0.05 + std::round(std::sin(seconds * 2) * size * 0.25));
    cairo_paint(context);
}
