// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded fonts, ready to measure and draw text: a face, a size and a direction. Called by the text operations
// and by the object table, which owns the fonts. Loaded faces are cached and shared between fonts, because
// every frame creates and deletes its fonts. font_match.h finds the file of a face, text.cpp draws.
#pragma once

#include "platform/fonts/cairo_owners.h"
#include "platform/logical_font.h"

#include <array>
#include <cstdint>
#include <memory>

// A face, independent of size. Lengths are in font units, `unitsPerEm` per em; up is positive.
struct FontFace {
    CairoFontFace handle;
    int unitsPerEm = 0;
    int ascent = 0;
    int descent = 0; // below the baseline, positive
    int externalLeading = 0;
    int weight = 400;      // 1 to 1000
    bool embolden = false; // the face lacks the requested weight, so drawing synthesises it
    bool slant = false;    // likewise for the slant
    // Bounding box of all glyphs, relative to the origin of a glyph.
    int inkLeft = 0;
    int inkRight = 0;
    int inkTop = 0;
    int inkBottom = 0;
    // Glyph and advance of each byte of the code page.
    std::array<std::uint32_t, 256> glyphs{};
    std::array<std::int32_t, 256> advances{};
};

struct FontObject {
    std::shared_ptr<const FontFace> face;
    CairoScaledFont scaled;
    int emHeight = 0; // pixels
    int boldness = 0; // pixels by which strokes and advances are widened to synthesise bold
    // Unit vector of the text direction on the screen; one of the four axis directions.
    int directionX = 1;
    int directionY = 0;

    // Converts font units to pixels at this size, rounded to the nearest.
    int pixels(int units) const;
    // Advance and height in pixels, independent of the direction.
    int advance(unsigned char byte) const;
    int height() const { return pixels(face->ascent) + pixels(face->descent); }
};

// Loads the font for a description by the rules of CreateFontIndirectA (platform/text.h). Returns null if no
// usable font is installed or the absolute height exceeds 4096 pixels.
std::unique_ptr<FontObject> loadFont(const LOGFONTA& description);
