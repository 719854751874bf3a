// SPDX-License-Identifier: GPL-3.0-or-later
// The visual style of a game, shared by its marquee, flyer, cabinet and title screen: colours, scenery,
// lettering and the seed of its hero. Derived from the game's name, year and maker; some words in the title
// determine the scenery.
#pragma once

#include "art/picture.h"
#include "games.h"

enum class Era { seventies, golden, sixteenBit, nineties, modern };
enum class Scenery { sunburst, space, sea, city, hills, road, stage, desert, snow, wire };
enum class Lettering { rainbow, gold, chrome, fire, neon, storybook, comic };

struct GameLook {
    std::uint32_t seed;
    double hue; // of the running game's scene, 0 to 1
    Era era;
    Scenery scenery;
    Lettering lettering;
    Tint deep;             // dark areas
    Tint main;             // middle tones
    Tint warm;             // light
    Tint accent;           // contrasts with all of these
    std::string title;     // without a remark in brackets
    std::string maker;     // empty when unknown
    std::string makerYear; // "1981 MAKER"
};

GameLook lookOf(const DemoGame& game);
