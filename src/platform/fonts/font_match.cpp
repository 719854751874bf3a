#include "platform/fonts/font_match.h"

#include "platform/fonts/font_pattern.h"

#include <fontconfig/fontconfig.h>

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {

// Gives the list of installed fonts back when the program ends, which else counts as leaked.
struct FontconfigUse {
    ~FontconfigUse() { FcFini(); }
};

// From this weight on a face counts as bold.
constexpr int boldFrom = 600;

// In the index of a variable font as a whole, in place of the number of a named instance.
constexpr unsigned variableFaceMark = 0x80000000;

const FcChar8* fontconfigText(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

int numberOf(FcPattern* pattern, const char* property, int otherwise) {
    int value = 0;
    return FcPatternGetInteger(pattern, property, 0, &value) == FcResultMatch ? value : otherwise;
}

// 1 to 1000. A variable font has a range here, its named instances have a number each.
int weightOf(FcPattern* pattern) {
    double weight = FC_WEIGHT_REGULAR;
    return FcPatternGetDouble(pattern, FC_WEIGHT, 0, &weight) == FcResultMatch
               ? static_cast<int>(std::lround(FcWeightToOpenTypeDouble(weight)))
               : 400;
}

bool isSlanted(FcPattern* pattern) {
    return numberOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
}

// A face has its names in several languages; any of them will do.
bool hasName(FcPattern* pattern, const char* property, const FontRequest& request, bool asBeginning) {
    FcChar8* value = nullptr;
    for (int i = 0; FcPatternGetString(pattern, property, i, &value) == FcResultMatch; ++i) {
        const bool same = asBeginning ? strncasecmp(reinterpret_cast<const char*>(value),
                                                    request.name.c_str(), request.name.size()) == 0
                                      : FcStrCmpIgnoreCase(value, fontconfigText(request.name)) == 0;
        if (same) {
            return true;
        }
    }
    return false;
}

struct InstalledName {
    bool isFamily = false;
    FcPattern* face = nullptr; // with this full name; borrowed from the configuration
};

InstalledName findInstalled(const FontRequest& request, bool asBeginning) {
    InstalledName found;
    for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* fonts = FcConfigGetFonts(nullptr, set);
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            FcPattern* font = fonts->fonts[i];
            if (!flagOf(font, FC_OUTLINE)) {
                continue;
            }
            if (!asBeginning && hasName(font, FC_FAMILY, request, false)) {
                return {true, nullptr};
            }
            if (!found.face && hasName(font, FC_FULLNAME, request, asBeginning)) {
                found.face = font;
            }
        }
    }
    return found;
}

// Takes one style word off the end of a name, for names like "Arial Bold" of a face that is not installed.
bool takeStyleWord(FontRequest& request) {
    struct StyleWord {
        const char* word;
        int weight; // 0: says nothing of the weight
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
    // The machine's own rules may already have answered a lack with these two, and then claim the weight and
    // the slant.
    FcMatrix* matrix = nullptr;
    const bool sheared = FcPatternGetMatrix(face, FC_MATRIX, 0, &matrix) == FcResultMatch && matrix->xy != 0;
    choice.embolden = flagOf(face, FC_EMBOLDEN) || (request.weight >= boldFrom && choice.weight < boldFrom);
    choice.slant = sheared || (request.italic && !isSlanted(face));
    return choice;
}

// The best face for the request by fontconfig's rules; of the given width unless that is -1.
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
    // The text is Latin, whatever language the machine speaks.
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

// A face that was named with its style, or the one of its family that adds what the request wants beyond
// that.
std::optional<FontChoice> chooseLike(FcPattern* face, const FontRequest& request) {
    const bool boldEnough = request.weight < boldFrom || weightOf(face) >= boldFrom;
    const bool slantedEnough = !request.italic || isSlanted(face);
    if (boldEnough && slantedEnough) {
        return choiceOf(face, request);
    }
    FontRequest sibling;
    sibling.name = textOf(face, FC_FAMILY);
    sibling.weight = boldEnough ? weightOf(face) : request.weight;
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
    if (!installed.isFamily && !installed.face && request.nameIsCut) {
        installed = findInstalled(request, true);
    }
    if (installed.face) {
        return chooseLike(installed.face, request);
    }
    while (!installed.isFamily && takeStyleWord(request)) {
    }
    return match(request, -1);
}
