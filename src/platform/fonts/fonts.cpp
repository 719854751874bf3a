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
constexpr int largestHeight = 4096;

// The application has a font for the list and one for the status bar, each in two forms.
constexpr std::size_t facesKept = 12;

// Fraction of its height by which a slanted letter leans, that of most oblique faces.
constexpr double slantSlope = 0.2;

// Pixels of em height for each pixel by which strokes are widened.
constexpr int emPerPixelOfBoldness = 24;

// What a face is asked for, as it stands in the description.
struct FaceKey {
    std::string name; // code page 1252
    int weight = 0;
    bool italic = false;

    bool same(const FaceKey& other) const {
        return weight == other.weight && italic == other.italic &&
               strcasecmp(name.c_str(), other.name.c_str()) == 0;
    }
};

struct KeptFace {
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

// The documented formulas: ascent and descent of the OS/2 table, and the line gap of the hhea table as far as
// these do not hold it already.
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
        // A control character is a blank: fonts have a box for it, or nothing.
        const unsigned letter = byte < ' ' || byte == deleteCharacter ? ' ' : byte;
        const unsigned code =
            isSymbol ? symbolArea + letter : codePageToUnicode(static_cast<unsigned char>(letter));
        FT_Fixed advance = 0;
        face.glyphs[byte] = FT_Get_Char_Index(source, code);
        FT_Get_Advance(source, face.glyphs[byte], FT_LOAD_NO_SCALE, &advance);
        face.advances[byte] = static_cast<std::int32_t>(std::clamp<FT_Fixed>(advance, 0, 0xFFFF));
    }
}

// False when the file is no outline font after all.
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

// A face that is listed but cannot be loaded gives way to the default one.
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

// The faces used last, the latest first.
std::shared_ptr<const FontFace> findFace(const FaceKey& key) {
    static std::vector<KeptFace> kept;
    const auto place =
        std::find_if(kept.begin(), kept.end(), [&](const KeptFace& one) { return one.key.same(key); });
    if (place != kept.end()) {
        std::rotate(kept.begin(), place, place + 1);
        return kept.front().face;
    }
    std::shared_ptr<const FontFace> face = openFace(key);
    if (face) {
        if (kept.size() == facesKept) {
            kept.pop_back();
        }
        kept.insert(kept.begin(), KeptFace{key, face});
    }
    return face;
}

// The em height whose cell is as high as asked, or the nearest below.
int emHeightForCell(const FontFace& face, int cellHeight) {
    FontObject trial;
    trial.face = std::shared_ptr<const FontFace>(std::shared_ptr<const FontFace>(), &face);
    trial.emHeight = std::max(1, cellHeight * face.unitsPerEm / (face.ascent + face.descent) + 1);
    while (trial.emHeight > 1 && trial.height() > cellHeight) {
        --trial.emHeight;
    }
    return trial.emHeight;
}

// The quarter turn nearest to an escapement in tenths of a degree counter-clockwise.
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
    if (height < -largestHeight || height > largestHeight) {
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
