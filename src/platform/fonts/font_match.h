// Finds the font file for a face name, weight and slant through fontconfig.
// Called by fonts.cpp, which keeps what was found: a search costs
// milliseconds on a machine with thousands of fonts. Loads and draws nothing.
#pragma once

#include <optional>
#include <string>

struct FontChoice {
    std::string file;
    int index = 0; // of the face in its file, with the named instance in the high 16 bits
    std::string variations;
    int weight = 400;      // of the face itself, 1 to 1000
    bool embolden = false; // the face lacks the weight that was asked for
    bool slant = false;    // the face lacks the slant
    bool operator==(const FontChoice&) const = default;
};

// Has the list of installed fonts given back when the program ends. Before any use of it.
void releaseFontconfigAtExit();

struct FontRequest {
    std::string name;       // UTF-8, a family or a full name
    bool nameIsCut = false; // only the first part of a longer name
    int weight = 400;       // 1 to 1000
    bool italic = false;
};

// The installed outline face that comes nearest, or nothing when there is none at all. An installed family or
// full name is found without regard to case; any other name gets fontconfig's substitute for it.
std::optional<FontChoice> chooseFont(FontRequest request);
