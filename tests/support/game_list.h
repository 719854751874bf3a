// The catalogue from the text of a list file, for
// tests that need games without files. Called by
// the tests of the catalogue. It sets no setting.
#pragma once

#include "catalogue/game_catalogue.h"

#include <cstdio>
#include <string>
#include <string_view>

// A stream that reads the text.
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

// The name of each game in an array, each with a blank behind it.
inline std::string namesOf(GameRecord* const* games, int count) {
    std::string names;
    for (int game = 0; game < count; ++game) {
        names += std::string(games[game]->name != nullptr ? games[game]->name : "?") + " ";
    }
    return names;
}
