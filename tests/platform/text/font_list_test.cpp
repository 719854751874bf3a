// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/font_list.h"

#include "support/temporary_folder.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

namespace {

int collect(const LOGFONTA* entry, const TEXTMETRICA*, DWORD type, LPARAM data) {
    EXPECT_EQ(type, TRUETYPE_FONTTYPE);
    const auto* font = reinterpret_cast<const ENUMLOGFONTEXA*>(entry);
    const std::string name = reinterpret_cast<const char*>(font->elfFullName);
    EXPECT_EQ(name.substr(0, 31), entry->lfFaceName);
    reinterpret_cast<std::multiset<std::string>*>(data)->insert(name);
    return 1;
}

std::multiset<std::string> installedFonts() {
    std::multiset<std::string> names;
    LOGFONTA description{};
    EnumFontFamiliesExA(nullptr, &description, collect, reinterpret_cast<LPARAM>(&names), 0);
    return names;
}

// Configures a private set of installed fonts. Call it before the first use of any font.
void useFonts(const TemporaryFolder& folder, const std::string& what) {
    const std::string config =
        "<fontconfig>" + what + "<cachedir>" + folder.pathOf("cache") + "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", folder.write("fonts.conf", config).c_str(), 1);
}

TEST(FontList, ListsEachOutlineFaceOnceByItsFullName) {
    const std::multiset<std::string> names = installedFonts();
    EXPECT_EQ(names.count("DejaVu Sans"), 1U);
    EXPECT_EQ(names.count("Liberation Serif Bold Italic"), 1U);
    EXPECT_EQ(names.count("Arial"), 1U) << "the substitute is listed under the standard name";
    for (const std::string& name : names) {
        EXPECT_EQ(names.count(name), 1U) << name;
        EXPECT_NE(name, "");
    }
}

TEST(FontList, ListsTwoCopiesOfAFaceOnce) {
    const TemporaryFolder folder;
    std::filesystem::create_directory("fonts");
    constexpr const char* source = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    for (const char* copy : {"fonts/a.ttf", "fonts/b.ttf"}) {
        std::filesystem::copy_file(source, copy);
    }
    useFonts(folder, "<dir>" + folder.pathOf("fonts") + "</dir>");
    EXPECT_EQ(installedFonts(),
              (std::multiset<std::string>{"Arial", "Courier New", "DejaVu Sans", "Times New Roman"}));
}

// Patches the font file so that the glyph of the letter A has another standard glyph name, by its index; with
// a negative index no glyph has a name.
std::string withNameOfA(std::string font, int name) {
    constexpr std::size_t glyphOfA = 36;
    const std::size_t entry = font.find("post") + 8;
    std::size_t table = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        table = table << 8 | static_cast<unsigned char>(font[entry + i]);
    }
    if (name < 0) {
        font[table + 1] = 3;
    } else {
        font[table + 34 + 2 * glyphOfA + 1] = static_cast<char>(name);
    }
    return font;
}

TEST(FontList, ExcludesOtherFormatsAndSymbolFonts) {
    constexpr int letterA = 36;
    constexpr int dollar = 7;
    const struct {
        const char* name;
        const char* format;
        bool onlyAscii;
        FcBool symbol;
        int nameOfA;
        bool listed;
    } rows[] = {
        {"Twin", "Type 1", false, FcFalse, letterA, false},
        {"OpenType", "CFF", false, FcFalse, letterA, true},
        {"Signs", "TrueType", true, FcFalse, dollar, false},
        {"Symbols", "TrueType", false, FcTrue, dollar, false},
        {"Plain", "TrueType", true, FcFalse, letterA, true},
        {"Letters", "TrueType", false, FcTrue, letterA, true},
        {"Nameless", "TrueType", true, FcFalse, -1, true},
    };
    const TemporaryFolder folder;
    std::filesystem::create_directory("fonts");
    const std::string source = folder.read("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    folder.write("fonts/source.ttf", source);
    useFonts(folder, "<dir>" + folder.pathOf("fonts") + "</dir>");
    FcFontSet* fonts = FcConfigGetFonts(nullptr, FcSetSystem);
    ASSERT_EQ(fonts->nfont, 1);
    FcCharSet* ascii = FcCharSetCreate();
    for (FcChar32 letter = ' '; letter < 0x7F; ++letter) {
        FcCharSetAddChar(ascii, letter);
    }
    for (const auto& row : rows) {
        const std::string file = folder.write(row.name, withNameOfA(source, row.nameOfA));
        FcPattern* font = FcPatternDuplicate(fonts->fonts[0]);
        const auto setText = [font](const char* property, const char* text) {
            FcPatternDel(font, property);
            FcPatternAddString(font, property, reinterpret_cast<const FcChar8*>(text));
        };
        setText(FC_FULLNAME, row.name);
        setText(FC_FONTFORMAT, row.format);
        setText(FC_FILE, file.c_str());
        FcPatternDel(font, FC_SYMBOL);
        FcPatternAddBool(font, FC_SYMBOL, row.symbol);
        if (row.onlyAscii) {
            FcPatternDel(font, FC_CHARSET);
            FcPatternAddCharSet(font, FC_CHARSET, ascii);
        }
        FcFontSetAdd(fonts, font);
    }
    FcCharSetDestroy(ascii);
    for (int round = 0; round < 2; ++round) { // the second round uses cached results, the files are removed
        const std::multiset<std::string> names = installedFonts();
        for (const auto& row : rows) {
            EXPECT_EQ(names.count(row.name), row.listed ? 1U : 0U) << row.name << round;
            std::filesystem::remove(row.name);
        }
    }
}

TEST(FontList, IsEmptyWithoutInstalledFonts) {
    const TemporaryFolder folder;
    useFonts(folder, "");
    EXPECT_TRUE(installedFonts().empty());
}

} // namespace
