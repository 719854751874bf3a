// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/nearest_word.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace {

bool sameLetter(unsigned char first, unsigned char second) {
    return std::tolower(first) == std::tolower(second);
}

// The number of characters to change, add or remove to make one text of the other (Levenshtein distance).
std::size_t distance(std::string_view first, std::string_view second) {
    std::vector<std::size_t> row(second.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : first) {
        std::size_t diagonal = row.front()++;
        for (std::size_t column = 1; column < row.size(); ++column) {
            const std::size_t changed = diagonal + (sameLetter(c, second[column - 1]) ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({changed, diagonal + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearestWord(std::string_view text, const std::vector<std::string>& words) {
    const auto nearest =
        std::ranges::min_element(words, {}, [text](const std::string& word) { return distance(text, word); });
    return nearest == words.end() ? "" : *nearest;
}
