// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/font_list.h"

#include "platform/codepage.h"
#include "platform/fonts/font_match.h"
#include "platform/fonts/font_pattern.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr const char* standardFaces[] = {"Arial", "Courier New", "Times New Roman"};

// Type 1 faces are excluded, because they duplicate OpenType faces under other names.
bool isTrueTypeOrOpenType(FcPattern* font) {
    const std::string format = textOf(font, FC_FONTFORMAT);
    return format == "TrueType" || format == "CFF";
}

// Choosing a symbol font or one of another script would make the whole screen unreadable.
bool hasLatinLetters(FcCharSet* characters) {
    constexpr std::string_view sample = "AZaz09";
    return std::ranges::all_of(sample, [characters](char letter) {
        return FcCharSetHasChar(characters, static_cast<FcChar32>(letter)) == FcTrue;
    });
}

// A symbol font can have its symbols at the code points of the letters. Such a font is either flagged as a
// symbol font or lacks the typographic apostrophe, which almost every text font has.
bool maybeSymbolFont(FcPattern* font, FcCharSet* characters) {
    constexpr FcChar32 apostrophe = 0x2019;
    return flagOf(font, FC_SYMBOL) || FcCharSetHasChar(characters, apostrophe) == FcFalse;
}

// Returns whether a glyph of this name can be the letter A. An empty or merely numbered name proves nothing
// against it.
bool canBeLetterA(std::string_view glyphName) {
    constexpr std::string_view prefixes[] = {"A.", "uni0041", "u0041", "glyph", "gid", "cid", "index"};
    return glyphName.empty() || glyphName == "A" ||
           std::ranges::any_of(
               prefixes, [glyphName](std::string_view prefix) { return glyphName.starts_with(prefix); });
}

// Returns the name of the glyph for the letter A; empty if the face has no glyph names, nothing if the file
// cannot be opened.
std::optional<std::string> glyphNameOfLetterA(const std::string& file, int index) {
    constexpr FT_ULong symbolArea = 0xF000;
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    std::optional<std::string> result;
    if (FT_Init_FreeType(&library) == 0 && FT_New_Face(library, file.c_str(), index, &face) == 0) {
        const bool isSymbol = !face->charmap && FT_Select_Charmap(face, FT_ENCODING_MS_SYMBOL) == 0;
        const FT_UInt glyph = FT_Get_Char_Index(face, isSymbol ? symbolArea + 'A' : 'A');
        std::array<char, 64> name{};
        if (FT_HAS_GLYPH_NAMES(face)) {
            FT_Get_Glyph_Name(face, glyph, name.data(), static_cast<FT_UInt>(name.size()));
        }
        result = name.data();
        FT_Done_Face(face);
    }
    FT_Done_FreeType(library);
    return result;
}

// Opening a font file is slow compared with the rest of the enumeration, so results are cached until exit.
bool hasRealLetters(FcPattern* font) {
    static std::map<std::pair<std::string, int>, bool> answers;
    int index = 0;
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    const std::pair key(textOf(font, FC_FILE), index);
    const auto known = answers.find(key);
    if (known != answers.end()) {
        return known->second;
    }
    const std::optional<std::string> name = glyphNameOfLetterA(key.first, index);
    return answers[key] = name && canBeLetterA(*name);
}

// The entry for a variable font as a whole is excluded; its named instances are listed separately.
bool isListed(FcPattern* font) {
    FcCharSet* characters = nullptr;
    return flagOf(font, FC_OUTLINE) && !flagOf(font, FC_COLOR) && !flagOf(font, FC_VARIABLE) &&
           isTrueTypeOrOpenType(font) &&
           FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch &&
           hasLatinLetters(characters) && (!maybeSymbolFont(font, characters) || hasRealLetters(font));
}

// Returns the English full name, or the first if there is no English one.
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
