// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/fonts/fonts.h"

#include "platform/fonts/font_match.h"
#include "platform/text.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace {

LOGFONTA described(const char* face, LONG height, LONG weight = 0, bool italic = false) {
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfWeight = weight;
    description.lfItalic = italic ? 1 : 0;
    std::strncpy(description.lfFaceName, face, sizeof(description.lfFaceName) - 1);
    return description;
}

std::string fileFor(const char* name, bool emphasised) {
    const bool cut = std::strlen(name) == sizeof(LOGFONTA::lfFaceName) - 1;
    const std::optional<FontChoice> choice = chooseFont({name, cut, emphasised ? 800 : 400, emphasised});
    return choice ? choice->file.substr(choice->file.rfind('/') + 1) : "";
}

// Replaces the installed fonts by the given files during the lifetime of the object.
class OnlyFonts {
public:
    explicit OnlyFonts(std::initializer_list<std::string> files) : former_(FcConfigReference(nullptr)) {
        FcConfig* config = FcConfigCreate();
        for (const std::string& file : files) {
            FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(file.c_str()));
        }
        FcConfigSetCurrent(config);
        FcConfigDestroy(config);
    }
    ~OnlyFonts() {
        FcConfigSetCurrent(former_);
        FcConfigDestroy(former_);
    }

private:
    FcConfig* former_;
};

} // namespace

TEST(Fonts, FindsFamiliesFullNamesAndSubstitutes) {
    const struct {
        const char* name;
        const char* regular;
        const char* emphasised;
    } cases[] = {
        {"Liberation Sans", "LiberationSans-Regular.ttf", "LiberationSans-BoldItalic.ttf"},
        {"lIBERATION sERIF", "LiberationSerif-Regular.ttf", "LiberationSerif-BoldItalic.ttf"},
        {"liberation sans bold italic", "LiberationSans-BoldItalic.ttf", "LiberationSans-BoldItalic.ttf"},
        {"Liberation Sans Bold", "LiberationSans-Bold.ttf", "LiberationSans-BoldItalic.ttf"},
        {"Liberation Sans Italic", "LiberationSans-Italic.ttf", "LiberationSans-BoldItalic.ttf"},
        {"Liberation Sans Narrow Bold Ita", "LiberationSansNarrow-BoldItalic.ttf",
         "LiberationSansNarrow-BoldItalic.ttf"},
        {"Arial", "LiberationSans-Regular.ttf", "LiberationSans-BoldItalic.ttf"},
        {"Arial Bold", "LiberationSans-Bold.ttf", "LiberationSans-BoldItalic.ttf"},
        {"Courier New Italic", "LiberationMono-Italic.ttf", "LiberationMono-BoldItalic.ttf"},
        {"DejaVu Sans Bold", "DejaVuSans-Bold.ttf", nullptr},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(fileFor(one.name, false), one.regular) << one.name;
        if (one.emphasised) {
            EXPECT_EQ(fileFor(one.name, true), one.emphasised) << one.name;
        }
    }
    for (const char* name : {"", " Bold", "No Such Face At All", "\xC3\xA9t\xC3\xA9"}) {
        EXPECT_NE(fileFor(name, false), "") << name;
    }
}

TEST(Fonts, SynthesisesMissingWeightAndSlant) {
    const std::string regular = chooseFont({"Liberation Sans"})->file;
    const std::string bold = chooseFont({"Liberation Sans Bold"})->file;
    {
        const OnlyFonts one{regular};
        std::optional<FontChoice> choice = chooseFont({"Liberation Sans", false, 800, true});
        EXPECT_TRUE(choice && choice->embolden && choice->slant);
        // A key that no other test uses, so that the face does not come from the cache.
        const LOGFONTA plain = described("Sole Face", -20, 401);
        const LOGFONTA emphasised = described("Sole Face", -20, 801, true);
        const std::unique_ptr<FontObject> light = loadFont(plain);
        const std::unique_ptr<FontObject> heavy = loadFont(emphasised);
        ASSERT_TRUE(light && heavy);
        EXPECT_EQ(light->boldness, 0);
        EXPECT_EQ(heavy->boldness, 1);
        EXPECT_EQ(heavy->advance('n'), light->advance('n') + 1);
        for (const LONG escapement : {0, 900, 1800, 2700}) {
            LOGFONTA turned = emphasised;
            turned.lfEscapement = escapement;
            const std::unique_ptr<FontObject> font = loadFont(turned);
            cairo_matrix_t matrix;
            cairo_scaled_font_get_font_matrix(font->scaled.get(), &matrix);
            const double lean = -(matrix.xy * font->directionX + matrix.yy * font->directionY);
            EXPECT_GT(lean, 2) << "the top of a letter leans along the text at " << escapement;
        }
    }
    const OnlyFonts two{regular, bold};
    const std::optional<FontChoice> choice = chooseFont({"Liberation Sans", false, 800, true});
    EXPECT_TRUE(choice && choice->file == bold && !choice->embolden && choice->slant);
}

TEST(Fonts, LoadsNothingWithoutInstalledFonts) {
    const OnlyFonts none{};
    const LOGFONTA description = described("Face Of No Machine", -20);
    EXPECT_EQ(loadFont(description), nullptr);
    EXPECT_EQ(CreateFontIndirectA(&description), nullptr);
    EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);
}

TEST(Fonts, MetricsComeFromTheTablesOfTheFont) {
    // In units of 1/2048 em: Liberation 1854, 434 and a line gap of 67; DejaVu 1901, 483 and no gap.
    const struct {
        const char* face;
        LONG height;
        int ascent;
        int descent;
        int externalLeading;
    } cases[] = {{"Liberation Sans", -16, 14, 3, 1}, {"Liberation Sans", -20, 18, 4, 1},
                 {"Liberation Sans", -8, 7, 2, 0},   {"Liberation Sans", -48, 43, 10, 2},
                 {"DejaVu Sans", -16, 15, 4, 0},     {"DejaVu Sans", -48, 45, 11, 0}};
    for (const auto& one : cases) {
        const std::unique_ptr<FontObject> font = loadFont(described(one.face, one.height));
        ASSERT_TRUE(font);
        EXPECT_EQ(font->pixels(font->face->ascent), one.ascent) << one.face << one.height;
        EXPECT_EQ(font->pixels(font->face->descent), one.descent) << one.face << one.height;
        EXPECT_EQ(font->pixels(font->face->externalLeading), one.externalLeading) << one.face << one.height;
    }
}

TEST(Fonts, TheOs2TableTakesPrecedenceOverHhea) {
    std::ifstream original(chooseFont({"Liberation Sans"})->file, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(original)), std::istreambuf_iterator<char>());
    const std::size_t entry = bytes.find("OS/2"); // table directory entry: tag, checksum, offset, length
    ASSERT_LT(entry, 500U);
    std::size_t table = 0;
    for (std::size_t i = 8; i < 12; ++i) {
        table = table << 8 | static_cast<unsigned char>(bytes[entry + i]);
    }
    bytes.replace(table + 74, 4, std::string("\x07\x00\x01\x00", 4)); // usWinAscent 1792, usWinDescent 256
    const std::string file = ::testing::TempDir() + "windows_metrics.ttf";
    std::ofstream(file, std::ios::binary) << bytes;
    const OnlyFonts only{file};
    const std::unique_ptr<FontObject> font = loadFont(described("Windows Metrics", -32));
    ASSERT_TRUE(font);
    EXPECT_EQ(font->height(), 28 + 4);
    EXPECT_EQ(font->pixels(font->face->externalLeading), 5); // (67 - (2048 - 2288)) * 32 / 2048
    std::remove(file.c_str());
}

TEST(Fonts, HeightsAreEmCellOrDefault) {
    for (int height = 2; height < 100; ++height) {
        const std::unique_ptr<FontObject> cell = loadFont(described("Liberation Sans", height));
        ASSERT_TRUE(cell);
        EXPECT_LE(cell->height(), height);
        EXPECT_GE(cell->height(), height - 1);
        EXPECT_EQ(loadFont(described("Liberation Sans", -height))->emHeight, height);
    }
    EXPECT_GT(loadFont(described("Liberation Sans", 0))->emHeight, 8);
    LOGFONTA junk{};
    std::memset(&junk, 0xFF, sizeof(junk));
    EXPECT_TRUE(loadFont(junk));
    EXPECT_TRUE(loadFont(described("Liberation Sans", -4096)));
    for (const LONG absurd : {-4097, 4097, INT_MIN, INT_MAX}) {
        EXPECT_FALSE(loadFont(described("Liberation Sans", absurd))) << absurd;
    }
}
