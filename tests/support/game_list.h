// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the catalogue from the text of a list file, for tests that need games without files. Used by the
// tests of the catalogue. Writes no settings.
#pragma once

#include "catalogue/game_catalogue.h"

#include <cstdio>
#include <string>
#include <string_view>

// Returns a stream that reads the text; the caller closes it.
inline FILE* openText(const std::string& text) {
    FILE* stream = std::tmpfile();
    std::fwrite(text.data(), 1, text.size(), stream);
    std::rewind(stream);
    return stream;
}

inline void loadCatalogue(const std::string& text) {
    freeGameList();
    FILE* stream = openText(text);
    readGameList(stream);
    std::fclose(stream);
}

// Returns the names of the games in an array, each followed by a blank.
inline std::string namesOf(GameRecord* const* games, int count) {
    std::string names;
    for (int game = 0; game < count; ++game) {
        names += std::string(games[game]->name ? games[game]->name : "?") + " ";
    }
    return names;
}
