// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utf8proc.h>

namespace {

// Code points of the bytes 0x80 to 0x9F. Every other byte is equal to its code point.
constexpr std::array<char16_t, 32> upperControlBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

struct PlainLetters {
    char32_t letter;
    const char* plain;
};

// Letters and signs without a decomposition, ordered by code point.
constexpr PlainLetters plainLetters[] = {
    {0x0110, "D"},  {0x0111, "d"}, {0x0126, "H"},    {0x0127, "h"}, {0x0131, "i"},    {0x0138, "k"},
    {0x0141, "L"},  {0x0142, "l"}, {0x014A, "N"},    {0x014B, "n"}, {0x0166, "T"},    {0x0167, "t"},
    {0x0180, "b"},  {0x0189, "D"}, {0x018E, "E"},    {0x018F, "E"}, {0x0191, "F"},    {0x0197, "I"},
    {0x019A, "l"},  {0x01B5, "Z"}, {0x01B6, "z"},    {0x01DD, "e"}, {0x01E4, "G"},    {0x01E5, "g"},
    {0x0237, "j"},  {0x0259, "e"}, {0x0268, "i"},    {0x02B9, "'"}, {0x02BB, "'"},    {0x02BC, "'"},
    {0x1E9E, "SS"}, {0x2010, "-"}, {0x2012, "-"},    {0x2015, "-"}, {0x201B, "'"},    {0x2032, "'"},
    {0x2043, "-"},  {0x2044, "/"}, {0x2212, "-"},    {0x2215, "/"}, {0x2217, "*"},    {0x2219, "\xB7"},
    {0x2236, ":"},  {0x223C, "~"}, {0x22C5, "\xB7"}, {0x301C, "~"}, {0x30FB, "\xB7"},
};

// Alpha to omega without the accented letters, which decompose. U+03C2 is the final sigma.
constexpr char32_t greekSmallAlpha = 0x03B1;
constexpr char32_t greekCapitalAlpha = 0x0391;
constexpr std::array<const char*, 25> greekLetters = {"a", "b", "g", "d", "e",  "z",  "e", "th", "i",
                                                      "k", "l", "m", "n", "x",  "o",  "p", "r",  "s",
                                                      "s", "t", "y", "f", "ch", "ps", "o"};

// The Russian alphabet from a to ya. The hard and the soft sign have no sound and are dropped.
constexpr char32_t cyrillicSmallA = 0x0430;
constexpr char32_t cyrillicCapitalA = 0x0410;
constexpr std::array<const char*, 32> cyrillicLetters = {
    "a", "b", "v", "g", "d", "e", "zh", "z",  "i",  "j",    "k", "l", "m", "n", "o",  "p",
    "r", "s", "t", "u", "f", "h", "ts", "ch", "sh", "shch", "",  "y", "",  "e", "yu", "ya"};

template <std::size_t count>
bool appendFromAlphabet(std::string& result, char32_t letter, char32_t capitalStart, char32_t smallStart,
                        const std::array<const char*, count>& alphabet) {
    const bool capital = letter >= capitalStart && letter < capitalStart + count;
    if (!capital && (letter < smallStart || letter >= smallStart + count)) {
        return false;
    }
    const std::size_t start = result.size();
    result += alphabet[letter - (capital ? capitalStart : smallStart)];
    if (capital && result.size() > start) {
        result[start] = static_cast<char>(result[start] - 'a' + 'A');
    }
    return true;
}

bool appendExact(std::string& result, char32_t letter) {
    // In practice a code point from U+0080 to U+009F comes from a code page byte that was mistaken for
    // Latin-1.
    if (letter <= 0xFF) {
        result += static_cast<char>(letter);
        return true;
    }
    const auto* found = std::find(upperControlBlock.begin(), upperControlBlock.end(), letter);
    if (found == upperControlBlock.end()) {
        return false;
    }
    result += static_cast<char>(0x80 + (found - upperControlBlock.begin()));
    return true;
}

// Appends the plain letters of a code point that has no decomposition.
void appendPlain(std::string& result, char32_t letter) {
    if (appendExact(result, letter)) {
        return;
    }
    const auto* found =
        std::lower_bound(std::begin(plainLetters), std::end(plainLetters), letter,
                         [](const PlainLetters& row, char32_t wanted) { return row.letter < wanted; });
    if (found != std::end(plainLetters) && found->letter == letter) {
        result += found->plain;
        return;
    }
    if (appendFromAlphabet(result, letter, greekCapitalAlpha, greekSmallAlpha, greekLetters) ||
        appendFromAlphabet(result, letter, cyrillicCapitalA, cyrillicSmallA, cyrillicLetters)) {
        return;
    }
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(letter))) {
    case UTF8PROC_CATEGORY_MN: // accents
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_CF: // joiners, direction and byte order marks
        return;
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
        result += ' ';
        return;
    default:
        result += '?';
    }
}

void appendLetter(std::string& result, char32_t letter) {
    if (appendExact(result, letter)) {
        return;
    }
    // The longest decomposition in Unicode has 18 code points.
    std::array<utf8proc_int32_t, 24> parts;
    int boundary = 0;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT);
    const utf8proc_ssize_t count =
        utf8proc_decompose_char(static_cast<utf8proc_int32_t>(letter), parts.data(),
                                static_cast<utf8proc_ssize_t>(parts.size()), options, &boundary);
    if (count < 1 || count > static_cast<utf8proc_ssize_t>(parts.size())) {
        result += '?';
        return;
    }
    for (utf8proc_ssize_t index = 0; index < count; ++index) {
        appendPlain(result, static_cast<char32_t>(parts[static_cast<std::size_t>(index)]));
    }
}

} // namespace

char32_t codePageToUnicode(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? upperControlBlock[byte - 0x80] : byte;
}

std::string utf8ToCodePage(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto* plainEnd =
            std::ranges::find_if(text, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
        const auto plain = static_cast<std::size_t>(plainEnd - text.begin());
        if (plain > 0) {
            result.append(text.substr(0, plain));
            text.remove_prefix(plain);
            continue;
        }
        utf8proc_int32_t letter = 0;
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
        const utf8proc_ssize_t length =
            utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &letter);
        if (length < 1) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        appendLetter(result, static_cast<char32_t>(letter));
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return result;
}
