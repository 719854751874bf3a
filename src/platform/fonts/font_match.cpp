// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/fonts/font_match.h"

#include "platform/fonts/font_pattern.h"

#include <fontconfig/fontconfig.h>

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {

// Frees fontconfig's list of installed fonts at exit, which leak checkers would otherwise report.
struct FontconfigUse {
    ~FontconfigUse() { FcFini(); }
};

// Faces of at least this weight count as bold.
constexpr int minBoldWeight = 600;

// Set in the index of a variable font as a whole, where a named instance has its number.
constexpr unsigned variableFaceMark = 0x80000000;

const FcChar8* fontconfigText(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

int numberOf(FcPattern* pattern, const char* property, int otherwise) {
    int value = 0;
    return FcPatternGetInteger(pattern, property, 0, &value) == FcResultMatch ? value : otherwise;
}

// Returns the weight, 1 to 1000; 400 for a variable font, which has a range instead of a number.
int weightOf(FcPattern* pattern) {
    double weight = FC_WEIGHT_REGULAR;
    return FcPatternGetDouble(pattern, FC_WEIGHT, 0, &weight) == FcResultMatch
               ? static_cast<int>(std::lround(FcWeightToOpenTypeDouble(weight)))
               : 400;
}

bool isSlanted(FcPattern* pattern) {
    return numberOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
}

// Compares the requested name with the face's names in all languages, or with their beginnings.
bool hasName(FcPattern* pattern, const char* property, const FontRequest& request, bool asPrefix) {
    FcChar8* value = nullptr;
    for (int i = 0; FcPatternGetString(pattern, property, i, &value) == FcResultMatch; ++i) {
        const bool same = asPrefix ? strncasecmp(reinterpret_cast<const char*>(value), request.name.c_str(),
                                                 request.name.size()) == 0
                                   : FcStrCmpIgnoreCase(value, fontconfigText(request.name)) == 0;
        if (same) {
            return true;
        }
    }
    return false;
}

struct InstalledName {
    bool isFamily = false;
    FcPattern* face = nullptr; // with this full name; owned by fontconfig
};

InstalledName findInstalled(const FontRequest& request, bool asPrefix) {
    InstalledName found;
    for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* fonts = FcConfigGetFonts(nullptr, set);
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            FcPattern* font = fonts->fonts[i];
            if (!flagOf(font, FC_OUTLINE)) {
                continue;
            }
            if (!asPrefix && hasName(font, FC_FAMILY, request, false)) {
                return {true, nullptr};
            }
            if (!found.face && hasName(font, FC_FULLNAME, request, asPrefix)) {
                found.face = font;
            }
        }
    }
    return found;
}

// Moves one style word from the end of the name into the weight and slant of the request, for names like
// "Arial Bold" of a face that is not installed. Returns false if there is none.
bool removeStyleWord(FontRequest& request) {
    struct StyleWord {
        const char* word;
        int weight; // 0: does not affect the weight
        bool italic;
    };
    static constexpr StyleWord styleWords[] = {
        {" Regular", 0, false}, {" Italic", 0, true},   {" Oblique", 0, true},
        {" Bold", 700, false},  {" Black", 900, false}, {" Heavy", 900, false},
    };
    for (const StyleWord& style : styleWords) {
        const std::string word = style.word;
        if (request.name.size() > word.size() &&
            strcasecmp(request.name.c_str() + request.name.size() - word.size(), style.word) == 0) {
            request.name.resize(request.name.size() - word.size());
            request.weight = std::max(request.weight, style.weight);
            request.italic = request.italic || style.italic;
            return true;
        }
    }
    return false;
}

FontChoice choiceOf(FcPattern* face, const FontRequest& request) {
    FontChoice choice;
    choice.file = textOf(face, FC_FILE);
    const int index = numberOf(face, FC_INDEX, 0);
    choice.index = (static_cast<unsigned>(index) & variableFaceMark) != 0 ? index & 0xFFFF : index;
    choice.variations = textOf(face, FC_FONT_VARIATIONS);
    choice.weight = weightOf(face);
    // The system's fontconfig rules may already synthesise a missing style with FC_MATRIX or FC_EMBOLDEN, and
    // then report the requested weight and slant as those of the face.
    FcMatrix* matrix = nullptr;
    const bool sheared = FcPatternGetMatrix(face, FC_MATRIX, 0, &matrix) == FcResultMatch && matrix->xy != 0;
    choice.embolden =
        flagOf(face, FC_EMBOLDEN) || (request.weight >= minBoldWeight && choice.weight < minBoldWeight);
    choice.slant = sheared || (request.italic && !isSlanted(face));
    return choice;
}

// Returns fontconfig's best match for the request. `width` is an FC_WIDTH value, or -1 for any.
std::optional<FontChoice> match(const FontRequest& request, int width) {
    const FontPattern wanted(FcPatternCreate());
    if (!request.name.empty()) {
        FcPatternAddString(wanted.get(), FC_FAMILY, fontconfigText(request.name));
    }
    FcPatternAddDouble(wanted.get(), FC_WEIGHT, FcWeightFromOpenTypeDouble(request.weight));
    FcPatternAddInteger(wanted.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    if (width >= 0) {
        FcPatternAddInteger(wanted.get(), FC_WIDTH, width);
    }
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(wanted.get(), FC_COLOR, FcFalse);
    // The text is Latin in every locale.
    FcPatternAddString(wanted.get(), FC_LANG, reinterpret_cast<const FcChar8*>("en"));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultMatch;
    const FontPattern found(FcFontMatch(nullptr, wanted.get(), &result));
    if (!found || textOf(found.get(), FC_FILE).empty()) {
        return std::nullopt;
    }
    return choiceOf(found.get(), request);
}

// Returns the face itself if it has the requested weight and slant, otherwise the face of its family that
// matches them best.
std::optional<FontChoice> chooseStyleOf(FcPattern* face, const FontRequest& request) {
    const bool hasWeight = request.weight < minBoldWeight || weightOf(face) >= minBoldWeight;
    const bool hasSlant = !request.italic || isSlanted(face);
    if (hasWeight && hasSlant) {
        return choiceOf(face, request);
    }
    FontRequest sibling;
    sibling.name = textOf(face, FC_FAMILY);
    sibling.weight = hasWeight ? weightOf(face) : request.weight;
    sibling.italic = request.italic || isSlanted(face);
    return match(sibling, numberOf(face, FC_WIDTH, FC_WIDTH_NORMAL));
}

} // namespace

void releaseFontconfigAtExit() {
    static const FontconfigUse use;
}

std::optional<FontChoice> chooseFont(FontRequest request) {
    releaseFontconfigAtExit();
    InstalledName installed = findInstalled(request, false);
    if (!installed.isFamily && !installed.face && request.nameIsTruncated) {
        installed = findInstalled(request, true);
    }
    if (installed.face) {
        return chooseStyleOf(installed.face, request);
    }
    while (!installed.isFamily && removeStyleWord(request)) {
    }
    return match(request, -1);
}
