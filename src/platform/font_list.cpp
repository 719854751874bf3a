#include "platform/font_list.h"

#include "platform/codepage.h"
#include "platform/font_match.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <string_view>

namespace {

constexpr const char* standardFaces[] = {"Arial", "Courier New", "Times New Roman"};

bool flagOf(FcPattern* font, const char* property) {
    FcBool value = FcFalse;
    return FcPatternGetBool(font, property, 0, &value) == FcResultMatch && value == FcTrue;
}

// A symbol font or one of another script would leave the whole screen unreadable.
bool hasLatinLetters(FcPattern* font) {
    constexpr std::string_view sample = "AZaz09";
    FcCharSet* letters = nullptr;
    return FcPatternGetCharSet(font, FC_CHARSET, 0, &letters) == FcResultMatch &&
           std::ranges::all_of(sample, [letters](char letter) {
               return FcCharSetHasChar(letters, static_cast<FcChar32>(letter)) == FcTrue;
           });
}

// The whole of a variable font is left out: its named instances are faces of their own.
bool isListed(FcPattern* font) {
    return flagOf(font, FC_OUTLINE) && !flagOf(font, FC_COLOR) && !flagOf(font, FC_VARIABLE) &&
           hasLatinLetters(font);
}

// A face has its name in several languages.
std::string fullNameOf(FcPattern* font) {
    FcChar8* first = nullptr;
    FcChar8* name = nullptr;
    FcChar8* language = nullptr;
    FcPatternGetString(font, FC_FULLNAME, 0, &first);
    for (int i = 0; FcPatternGetString(font, FC_FULLNAME, i, &name) == FcResultMatch &&
                    FcPatternGetString(font, FC_FULLNAMELANG, i, &language) == FcResultMatch;
         ++i) {
        if (std::string_view(reinterpret_cast<const char*>(language)).starts_with("en")) {
            first = name;
            break;
        }
    }
    return first ? utf8ToCodePage(reinterpret_cast<const char*>(first)) : "";
}

std::set<std::string> installedNames() {
    releaseFontconfigAtExit();
    std::set<std::string> names;
    for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* fonts = FcConfigGetFonts(nullptr, set);
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            if (isListed(fonts->fonts[i])) {
                names.insert(fullNameOf(fonts->fonts[i]));
            }
        }
    }
    names.erase("");
    if (!names.empty()) {
        names.insert(std::begin(standardFaces), std::end(standardFaces));
    }
    return names;
}

ENUMLOGFONTEXA describe(const std::string& name) {
    ENUMLOGFONTEXA entry{};
    std::memcpy(entry.elfFullName, name.data(), std::min(name.size(), sizeof(entry.elfFullName) - 1));
    std::memcpy(entry.elfLogFont.lfFaceName, name.data(),
                std::min(name.size(), sizeof(entry.elfLogFont.lfFaceName) - 1));
    entry.elfLogFont.lfCharSet = ANSI_CHARSET;
    return entry;
}

} // namespace

int EnumFontFamiliesExA(HDC, const LOGFONTA* description, FONTENUMPROCA function, LPARAM data, DWORD) {
    int result = 1;
    if (description->lfCharSet != ANSI_CHARSET || *description->lfFaceName != '\0') {
        return result;
    }
    const TEXTMETRICA metrics{};
    for (const std::string& name : installedNames()) {
        const ENUMLOGFONTEXA entry = describe(name);
        result = function(&entry.elfLogFont, &metrics, TRUETYPE_FONTTYPE, data);
        if (result == 0) {
            break;
        }
    }
    return result;
}
