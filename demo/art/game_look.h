// How a game looks on everything that is painted of it, so that marquee, flyer and cabinet belong together:
// its colours, its scenery, its lettering, its hero. Follows from the game's name, year and maker; a few
// words in the title name the scenery.
#pragma once

#include "art/picture.h"
#include "games.h"

enum class Era { Seventies, Golden, SixteenBit, Nineties, Modern };
enum class Scenery { Sunburst, Space, Sea, City, Hills, Road, Stage, Desert, Snow, Wire };
enum class Lettering { Rainbow, Gold, Chrome, Fire, Neon, Storybook, Comic };

struct GameLook {
    std::uint32_t seed;
    double hue; // that of the running game's scene
    Era era;
    Scenery scenery;
    Lettering lettering;
    Tint deep;             // night side of the scene
    Tint main;             // its middle
    Tint warm;             // its light
    Tint accent;           // what stands out from all of these
    std::string title;     // without the remark in brackets
    std::string maker;     // empty when unknown
    std::string makerYear; // "1981 MAKER"
};

GameLook lookOf(const DemoGame& game);
