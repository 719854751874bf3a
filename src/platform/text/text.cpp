// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include "platform/drawing/context_table.h"
#include "platform/drawing/object_table.h"
#include "platform/fonts/fonts.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <memory>

namespace {

// Larger glyphs are drawn as outlines, so that cairo does not cache their images, which take 100 KB each.
constexpr int maxCachedEmHeight = 128;

std::int64_t widthOf(const FontObject& font, LPCSTR text, int length) {
    std::int64_t width = 0;
    for (int i = 0; i < length; ++i) {
        width += font.advance(static_cast<unsigned char>(text[i]));
    }
    return width;
}

// Maps text coordinates to the screen. The text's origin is the top left corner of its cell; its axes point
// along the text and down from it.
struct Placement {
    std::int64_t x = 0;
    std::int64_t y = 0;
    int directionX = 1;
    int directionY = 0;

    // Convert a point from text to screen coordinates.
    std::int64_t screenX(std::int64_t along, std::int64_t down) const {
        return x + along * directionX - down * directionY;
    }
    std::int64_t screenY(std::int64_t along, std::int64_t down) const {
        return y + along * directionY + down * directionX;
    }

    // Converts a rectangle from text to screen coordinates.
    Area screenArea(const Area& area) const {
        const auto [left, right] =
            std::minmax({screenX(area.left, area.top), screenX(area.right, area.bottom)});
        const auto [top, bottom] =
            std::minmax({screenY(area.left, area.top), screenY(area.right, area.bottom)});
        return {left, top, right, bottom};
    }
};

// Draws the glyphs of one text. They are passed to cairo in batches of fixed size, and glyphs that cannot
// touch the surface are skipped, so that memory use does not depend on the length or position of the text.
class GlyphPainter {
public:
    GlyphPainter(Surface& surface, const FontObject& font, const Placement& placement, COLORREF color)
        : surface_(surface), font_(font), placement_(placement),
          image_(cairo_image_surface_create_for_data(
              reinterpret_cast<unsigned char*>(surface.pixels.get()), CAIRO_FORMAT_RGB24, surface.width,
              surface.height, surface.width * static_cast<int>(sizeof(std::uint32_t)))),
          cairo_(cairo_create(image_.get())) {
        cairo_set_scaled_font(cairo_.get(), font.scaled.get());
        const std::uint32_t pixel = pixelOf(color);
        cairo_set_source_rgb(cairo_.get(), ((pixel >> 16) & 0xFF) / 255.0, ((pixel >> 8) & 0xFF) / 255.0,
                             (pixel & 0xFF) / 255.0);
    }

    void paint(LPCSTR text, int length) {
        const int baseline = font_.pixels(font_.face->ascent);
        const int margin = 2 * font_.emHeight + inkReach();
        std::int64_t pen = 0;
        for (int i = 0; i < length; ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            const std::int64_t x = placement_.screenX(pen, baseline);
            const std::int64_t y = placement_.screenY(pen, baseline);
            if (x > -margin && x < surface_.width + margin && y > -margin && y < surface_.height + margin) {
                glyphs_[count_] = {font_.face->glyphs[byte], static_cast<double>(x), static_cast<double>(y)};
                if (++count_ == glyphs_.size()) {
                    show();
                }
            }
            pen += font_.advance(byte);
        }
        show();
    }

private:
    int inkReach() const {
        const FontFace& face = *font_.face;
        return std::max({std::abs(font_.pixels(face.inkLeft)), std::abs(font_.pixels(face.inkRight)),
                         std::abs(font_.pixels(face.inkTop)), std::abs(font_.pixels(face.inkBottom))});
    }

    // Draws the batch. Bold is synthesised by drawing it again, each time shifted by one pixel along the
    // text.
    void show() {
        for (int pass = 0; count_ > 0; ++pass) {
            if (font_.emHeight > maxCachedEmHeight) {
                cairo_glyph_path(cairo_.get(), glyphs_.data(), static_cast<int>(count_));
                cairo_fill(cairo_.get());
            } else {
                cairo_show_glyphs(cairo_.get(), glyphs_.data(), static_cast<int>(count_));
            }
            if (pass == font_.boldness) {
                break;
            }
            for (std::size_t i = 0; i < count_; ++i) {
                glyphs_[i].x += font_.directionX;
                glyphs_[i].y += font_.directionY;
            }
        }
        count_ = 0;
    }

    Surface& surface_;
    const FontObject& font_;
    const Placement& placement_;
    CairoSurface image_;
    Cairo cairo_;
    std::array<cairo_glyph_t, 200> glyphs_;
    std::size_t count_ = 0;
};

// Returns the pixels that the glyphs of a text may have touched, with a margin of two for hinting.
Area inkArea(const FontObject& font, const Placement& placement, std::int64_t width) {
    const FontFace& face = *font.face;
    const int baseline = font.pixels(face.ascent);
    const int lean = face.slant ? font.emHeight : 0;
    return placement.screenArea(
        {font.pixels(face.inkLeft) - lean - 2, baseline - font.pixels(face.inkTop) - 2,
         width + font.pixels(face.inkRight) + lean + 2, baseline - font.pixels(face.inkBottom) + 2});
}

} // namespace

HFONT CreateFontIndirectA(const LOGFONTA* description) {
    return description ? addFont(loadFont(*description)) : nullptr;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    const DeviceContext* context = findDeviceContext(dc);
    const FontObject* font = context ? selectedFont(*context) : nullptr;
    if (!font || !metrics) {
        return FALSE;
    }
    *metrics = {};
    metrics->tmAscent = font->pixels(font->face->ascent);
    metrics->tmDescent = font->pixels(font->face->descent);
    metrics->tmHeight = font->height();
    metrics->tmInternalLeading = metrics->tmHeight - font->emHeight;
    metrics->tmExternalLeading = font->pixels(font->face->externalLeading);
    metrics->tmWeight = font->face->weight;
    return TRUE;
}

BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size) {
    const DeviceContext* context = findDeviceContext(dc);
    const FontObject* font = context ? selectedFont(*context) : nullptr;
    if (!font || !size || length < 0 || (!text && length > 0)) {
        return FALSE;
    }
    const std::int64_t width = widthOf(*font, text, length);
    size->cx = static_cast<LONG>(std::min<std::int64_t>(width, std::numeric_limits<LONG>::max()));
    size->cy = font->height();
    return TRUE;
}

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length) {
    const DeviceContext* context = findDeviceContext(dc);
    const FontObject* font = context ? selectedFont(*context) : nullptr;
    if (!font || length < 0 || (!text && length > 0)) {
        return FALSE;
    }
    Surface& surface = *context->surface;
    if (length == 0 || !surface.pixels) {
        return TRUE;
    }
    const Placement placement{x, y, font->directionX, font->directionY};
    const std::int64_t width = widthOf(*font, text, length);
    if (context->backgroundMode == OPAQUE) {
        surface.fill(placement.screenArea({0, 0, width, font->height()}), pixelOf(context->backgroundColor));
    }
    GlyphPainter(surface, *font, placement, context->textColor).paint(text, length);
    surface.clearUnusedBytes(inkArea(*font, placement, width));
    surface.changed = true;
    return TRUE;
}
