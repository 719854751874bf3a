// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/options.h"

#include <charconv>
#include <string_view>

namespace {

std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < 0) {
        return std::nullopt;
    }
    return value;
}

} // namespace

StandinOptions readStandinOptions(int argc, char** argv) {
    StandinOptions options;
    for (int i = 1; i < argc; ++i) {
        std::string_view word = argv[i];
        std::string_view next = i + 1 < argc ? argv[i + 1] : "";
        if (word == "-listxml") {
            options.listXml = true;
        } else if (word == "-seconds") {
            options.seconds = wholeNumber(next);
        } else if (word == "-exitcode") {
            options.exitCode = wholeNumber(next).value_or(0);
        } else if (word == "-verbose") {
            options.verbose = true;
        } else if (!word.starts_with('-') && options.gameName.empty()) {
            options.gameName = word;
        }
        if (word == "-seconds" || word == "-exitcode") {
            ++i;
        }
    }
    return options;
}
