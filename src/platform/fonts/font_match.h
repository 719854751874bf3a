// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the font file for a face name, weight and slant using fontconfig. Called by fonts.cpp, which loads
// the file and caches the result, because a search takes milliseconds with thousands of fonts installed. Does
// not open font files.
#pragma once

#include <optional>
#include <string>

struct FontChoice {
    std::string file;
    int index = 0; // of the face in its file, with the named instance in the high 16 bits
    std::string variations;
    int weight = 400;      // of the face itself, 1 to 1000
    bool embolden = false; // the face lacks the requested weight
    bool slant = false;    // the face lacks the requested slant
    bool operator==(const FontChoice&) const = default;
};

// Registers the release of fontconfig's data at exit. Call it before any use of fontconfig.
void releaseFontconfigAtExit();

struct FontRequest {
    std::string name;             // UTF-8, a family or full name
    bool nameIsTruncated = false; // `name` is the truncated beginning of a longer name
    int weight = 400;             // 1 to 1000
    bool italic = false;
};

// Returns the installed outline face that matches best, or nothing if none is installed. Family and full
// names are matched case-insensitively; a name that is not installed yields fontconfig's substitute.
std::optional<FontChoice> chooseFont(FontRequest request);
