// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/codepage.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(CodePageTest, EveryByteSurvivesARoundTrip) {
    for (unsigned byte = 1; byte < 256; ++byte) {
        const char32_t letter = codePageToUnicode(static_cast<unsigned char>(byte));
        const std::string utf8 = std::filesystem::path(std::u32string(1, letter)).string();
        EXPECT_EQ(utf8ToCodePage(utf8), std::string(1, static_cast<char>(byte))) << byte;
    }
}

TEST(CodePageTest, ReplacesCharactersThatTheCodePageLacks) {
    const struct {
        const char* utf8;
        const char* expected;
    } cases[] = {
        {"", ""},
        {"Pok\u00E9mon \u2122\u0178\u20AC", "Pok\xE9mon \x99\x9F\x80"},
        {"Poke\u0301mon", "Pokemon"}, // a combining accent
        {"\u0141\u00F3d\u017A", "L\xF3"
                                "dz"},         // with and without a decomposition
        {"\u1EA4 \u01D6", "A u"},              // two accents on one letter
        {"\uFB01x \u2460 \u2116", "fix 1 No"}, // ligature, circled digit, numero sign
        {"\uFF21\uFF11\u3000\uFF01", "A1 !"},  // full-width forms
        {"FM-16\u03B2 \u03A9 \u0398", "FM-16b O Th"},
        {"\u0416\u0451\u043B\u0442\u044B\u0439", "Zheltyi"},
        {"\u2212\u2010\u2032", "--'"},
        {"\u200Ba\uFEFFb", "ab"}, // zero-width characters
        {"\u65E5\u672C \u2665 \U0001F3AE", "?? ? ?"},
        {"caf\xE9 \xC3", "caf\xE9 \xC3"}, // not UTF-8
        {"\xE2\x82", "\xE2\x82"},         // truncated UTF-8
    };
    for (const auto& row : cases) {
        EXPECT_EQ(utf8ToCodePage(row.utf8), row.expected) << row.utf8;
    }
}

} // namespace
