// Fonts as they are measured and drawn: a face, a size and a direction. Called by the text operations and by
// the objects behind the handles. Loaded faces are kept and shared behind the scenes, because every frame
// makes and deletes its fonts anew. Finding the file of a face is the business of font_match.h, drawing that
// of text.cpp.
#pragma once

#include "platform/fonts/cairo_owners.h"
#include "platform/logical_font.h"

#include <array>
#include <cstdint>
#include <memory>

// A face at no size. Lengths are in units of the em, `unitsPerEm` of them; up is positive.
struct FontFace {
    CairoFontFace handle;
    int unitsPerEm = 0;
    int ascent = 0;
    int descent = 0; // below the baseline, positive
    int externalLeading = 0;
    int weight = 400;      // 1 to 1000
    bool embolden = false; // the face lacks the weight or slant that was asked for, and drawing adds it
    bool slant = false;
    // What a glyph may cover, from its origin.
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
    int boldness = 0; // pixels by which strokes are widened, and glyphs set apart, to make the face bold
    // The step of one pixel along the text on the screen, a quarter turn's.
    int directionX = 1;
    int directionY = 0;

    // A length of the face in whole pixels at this size.
    int pixels(int units) const;
    // The same at every escapement.
    int advance(unsigned char byte) const;
    int height() const { return pixels(face->ascent) + pixels(face->descent); }
};

// The font for a description, by the rules of CreateFontIndirectA.
std::unique_ptr<FontObject> loadFont(const LOGFONTA& description);
