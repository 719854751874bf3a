// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/fonts/fonts.h"

#include "platform/codepage.h"
#include "platform/fonts/font_match.h"
#include "platform/fonts/font_pattern.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int defaultHeight = 16;
constexpr int maxHeight = 4096;

// Faces in the cache. The application uses up to four at a time: the list and the status bar have two each.
constexpr std::size_t maxCachedFaces = 12;

// Horizontal shear per unit of height of a synthesised slant, as in most oblique faces.
constexpr double slantSlope = 0.2;

// Pixels of em height per pixel by which strokes are widened.
constexpr int emPerPixelOfBoldness = 24;

// The face that a LOGFONTA requests.
struct FaceKey {
    std::string name; // code page 1252
    int weight = 0;
    bool italic = false;

    bool same(const FaceKey& other) const {
        return weight == other.weight && italic == other.italic &&
               strcasecmp(name.c_str(), other.name.c_str()) == 0;
    }
};

struct CachedFace {
    FaceKey key;
    std::shared_ptr<const FontFace> face;
};

const cairo_font_options_t* renderingOptions() {
    static const CairoFontOptions options = [] {
        CairoFontOptions made(cairo_font_options_create());
        cairo_font_options_set_antialias(made.get(), CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(made.get(), CAIRO_HINT_STYLE_SLIGHT);
        cairo_font_options_set_hint_metrics(made.get(), CAIRO_HINT_METRICS_ON);
        return made;
    }();
    return options.get();
}

std::string utf8Of(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        FcChar8 bytes[FC_UTF8_MAX_LEN];
        const int length = FcUcs4ToUtf8(codePageToUnicode(static_cast<unsigned char>(letter)), bytes);
        result.append(bytes, bytes + length);
    }
    return result;
}

cairo_font_face_t* openFile(const FontChoice& choice) {
    const FontPattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FILE, reinterpret_cast<const FcChar8*>(choice.file.c_str()));
    FcPatternAddInteger(pattern.get(), FC_INDEX, choice.index);
    if (!choice.variations.empty()) {
        FcPatternAddString(pattern.get(), FC_FONT_VARIATIONS,
                           reinterpret_cast<const FcChar8*>(choice.variations.c_str()));
    }
    FcPatternAddBool(pattern.get(), FC_ANTIALIAS, FcTrue);
    FcPatternAddBool(pattern.get(), FC_HINTING, FcTrue);
    FcPatternAddInteger(pattern.get(), FC_HINT_STYLE, FC_HINT_SLIGHT);
    return cairo_ft_font_face_create_for_pattern(pattern.get());
}

// Uses the formulas documented for Windows: ascent and descent are those of the OS/2 table, and the external
// leading is the part of the hhea table's line spacing that exceeds them.
void readMetrics(FT_Face source, FontFace& face) {
    const auto* horizontal = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(source, FT_SFNT_HHEA));
    const auto* windows = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(source, FT_SFNT_OS2));
    const int ascender = horizontal ? horizontal->Ascender : source->ascender;
    const int descender = horizontal ? horizontal->Descender : source->descender;
    face.ascent = ascender;
    face.descent = -descender;
    if (windows && windows->version != 0xFFFF && windows->usWinAscent + windows->usWinDescent > 0) {
        face.ascent = windows->usWinAscent;
        face.descent = windows->usWinDescent;
    }
    const int lineGap = horizontal ? horizontal->Line_Gap : 0;
    face.externalLeading = std::max(0, lineGap - (face.ascent + face.descent - (ascender - descender)));
}

void readGlyphs(FT_Face source, FontFace& face) {
    constexpr unsigned symbolArea = 0xF000;
    constexpr unsigned deleteCharacter = 0x7F;
    const bool isSymbol = !source->charmap && FT_Select_Charmap(source, FT_ENCODING_MS_SYMBOL) == 0;
    for (unsigned byte = 0; byte < face.glyphs.size(); ++byte) {
        // A control character is drawn as a blank, because fonts have a box or no glyph for it.
        const unsigned letter = byte < ' ' || byte == deleteCharacter ? ' ' : byte;
        const unsigned code =
            isSymbol ? symbolArea + letter : codePageToUnicode(static_cast<unsigned char>(letter));
        FT_Fixed advance = 0;
        face.glyphs[byte] = FT_Get_Char_Index(source, code);
        FT_Get_Advance(source, face.glyphs[byte], FT_LOAD_NO_SCALE, &advance);
        face.advances[byte] = static_cast<std::int32_t>(std::clamp<FT_Fixed>(advance, 0, 0xFFFF));
    }
}

// Returns false if the file is not a usable outline font.
bool readFace(FT_Face source, FontFace& face) {
    if (!FT_IS_SCALABLE(source) || source->units_per_EM == 0) {
        return false;
    }
    face.unitsPerEm = source->units_per_EM;
    face.inkLeft = static_cast<int>(source->bbox.xMin);
    face.inkRight = static_cast<int>(source->bbox.xMax);
    face.inkTop = static_cast<int>(source->bbox.yMax);
    face.inkBottom = static_cast<int>(source->bbox.yMin);
    readMetrics(source, face);
    readGlyphs(source, face);
    return face.ascent + face.descent > 0;
}

std::shared_ptr<const FontFace> openChoice(const FontChoice& choice) {
    auto face = std::make_shared<FontFace>();
    face->handle.reset(openFile(choice));
    face->weight = choice.embolden ? 700 : choice.weight;
    face->embolden = choice.embolden;
    face->slant = choice.slant;
    cairo_matrix_t size;
    cairo_matrix_t identity;
    cairo_matrix_init_scale(&size, defaultHeight, defaultHeight);
    cairo_matrix_init_identity(&identity);
    const CairoScaledFont scaled(
        cairo_scaled_font_create(face->handle.get(), &size, &identity, renderingOptions()));
    if (cairo_scaled_font_status(scaled.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    FT_Face source = cairo_ft_scaled_font_lock_face(scaled.get());
    if (!source) {
        return nullptr;
    }
    const bool usable = readFace(source, *face);
    cairo_ft_scaled_font_unlock_face(scaled.get());
    return usable ? face : nullptr;
}

// Falls back to the default face if the one that fontconfig lists cannot be loaded.
std::shared_ptr<const FontFace> openFace(const FaceKey& key) {
    for (const std::string& name : {utf8Of(key.name), std::string()}) {
        const bool cut = key.name.size() == sizeof(LOGFONTA::lfFaceName) - 1;
        const std::optional<FontChoice> choice = chooseFont({name, cut, key.weight, key.italic});
        std::shared_ptr<const FontFace> face = choice ? openChoice(*choice) : nullptr;
        if (face) {
            return face;
        }
    }
    return nullptr;
}

// Returns the face from a cache of recently used ones, most recent first, or loads it.
std::shared_ptr<const FontFace> findFace(const FaceKey& key) {
    static std::vector<CachedFace> cache;
    const auto place =
        std::find_if(cache.begin(), cache.end(), [&](const CachedFace& one) { return one.key.same(key); });
    if (place != cache.end()) {
        std::rotate(cache.begin(), place, place + 1);
        return cache.front().face;
    }
    std::shared_ptr<const FontFace> face = openFace(key);
    if (face) {
        if (cache.size() == maxCachedFaces) {
            cache.pop_back();
        }
        cache.insert(cache.begin(), CachedFace{key, face});
    }
    return face;
}

// Returns the largest em height whose cell is at most `cellHeight` pixels high, at least 1.
int emHeightForCell(const FontFace& face, int cellHeight) {
    FontObject trial;
    trial.face = std::shared_ptr<const FontFace>(std::shared_ptr<const FontFace>(), &face);
    trial.emHeight = std::max(1, cellHeight * face.unitsPerEm / (face.ascent + face.descent) + 1);
    while (trial.emHeight > 1 && trial.height() > cellHeight) {
        --trial.emHeight;
    }
    return trial.emHeight;
}

// Rounds the escapement, in tenths of a degree counter-clockwise, to a quarter turn.
void setDirection(FontObject& font, LONG escapement) {
    constexpr int quarterTurn = 900;
    constexpr int stepsX[] = {1, 0, -1, 0};
    constexpr int stepsY[] = {0, -1, 0, 1};
    const int turn = (escapement % (4 * quarterTurn) + 4 * quarterTurn + quarterTurn / 2) / quarterTurn % 4;
    font.directionX = stepsX[turn];
    font.directionY = stepsY[turn];
}

bool scale(FontObject& font) {
    const double x = font.emHeight * font.directionX;
    const double y = font.emHeight * font.directionY;
    const double lean = font.face->slant ? slantSlope : 0;
    cairo_matrix_t matrix;
    cairo_matrix_t identity;
    cairo_matrix_init(&matrix, x, y, -y - lean * x, x - lean * y, 0, 0);
    cairo_matrix_init_identity(&identity);
    font.scaled.reset(
        cairo_scaled_font_create(font.face->handle.get(), &matrix, &identity, renderingOptions()));
    return cairo_scaled_font_status(font.scaled.get()) == CAIRO_STATUS_SUCCESS;
}

} // namespace

int FontObject::pixels(int units) const {
    const std::int64_t scaledUnits = static_cast<std::int64_t>(units) * emHeight * 2;
    const std::int64_t rounding = units < 0 ? -face->unitsPerEm : face->unitsPerEm;
    return static_cast<int>((scaledUnits + rounding) / (std::int64_t{2} * face->unitsPerEm));
}

int FontObject::advance(unsigned char byte) const {
    const int units = face->advances[byte];
    return units > 0 ? pixels(units) + boldness : 0;
}

std::unique_ptr<FontObject> loadFont(const LOGFONTA& description) {
    const std::int64_t height = description.lfHeight;
    if (height < -maxHeight || height > maxHeight) {
        return nullptr;
    }
    FaceKey key;
    key.name.assign(description.lfFaceName,
                    strnlen(description.lfFaceName, sizeof(description.lfFaceName) - 1));
    key.weight = description.lfWeight <= 0 ? 400 : std::min<int>(description.lfWeight, 1000);
    key.italic = description.lfItalic != 0;
    auto font = std::make_unique<FontObject>();
    font->face = findFace(key);
    if (!font->face) {
        return nullptr;
    }
    if (height > 0) {
        font->emHeight = emHeightForCell(*font->face, static_cast<int>(height));
    } else {
        font->emHeight = height == 0 ? defaultHeight : static_cast<int>(-height);
    }
    if (font->face->embolden) {
        font->boldness = std::max(1, (font->emHeight + emPerPixelOfBoldness / 2) / emPerPixelOfBoldness);
    }
    setDirection(*font, description.lfEscapement);
    return scale(*font) ? std::move(font) : nullptr;
}
