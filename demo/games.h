// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the invented games of the demonstration cabinet. Used by demo-mame for its game list, by
// demo-cabinet, and by tests that search for a game on the screen. The front end does not use it; it gets the
// games from the emulator. All titles and makers are invented. All text is UTF-8.
#pragma once

#include <span>
#include <string_view>

// Kind of an entry in the emulator's list; only `game` can be played.
enum class DemoKind { game, bios, device, notRunnable, mechanical };

// A display as in the emulator's list, width and height in pixels before rotation; no display if `type` is
// empty.
struct DemoDisplay {
    std::string_view type; // raster, vector, lcd or empty
    int rotate;            // degrees clockwise: 0, 90, 180 or 270
    int width;             // 0 for a vector tube
    int height;

    bool portrait() const { return rotate == 90 || rotate == 270; }
};

// The controls of one player, the same for all players; none if `type` is empty.
struct DemoControl {
    int players;
    int coins;
    std::string_view type; // the list's own words: joy, dial, ...
    std::string_view ways; // "8", "3 (half4)", ...; empty when the type has none
    int buttons;
};

struct DemoGame {
    std::string_view name;
    std::string_view description;
    std::string_view year; // digits, digits with question marks, or empty
    std::string_view manufacturer;
    std::string_view cloneOf; // empty for an original
    std::string_view romOf;   // empty unless the set needs another one's files
    DemoKind kind;
    DemoDisplay display;
    DemoControl control;
    bool romPresent;          // the cabinet has a zip for it
    std::string_view options; // its value in the section Mameoptions, or empty
};

std::span<const DemoGame> demoGames();

// The entry of that name, or null.
const DemoGame* findDemoGame(std::string_view name);
