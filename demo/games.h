// The invented games of the demonstration cabinet: one table, from which the stand-in emulator answers and
// the cabinet is laid out. Read by demo-mame and demo-cabinet, and by the tests that look for a game on the
// screen. Every title and every maker is made up. Nothing here is read by the front end itself, which knows
// only what the emulator tells it. All text is UTF-8.
#pragma once

#include <span>
#include <string_view>

// What an entry of the emulator's list is; only `Game` can be played.
enum class DemoKind { Game, Bios, Device, NotRunnable, Mechanical };

// A display as the list gives it: width and height before turning, in pixels; none when `type` is empty.
struct DemoDisplay {
    std::string_view type; // raster, vector, lcd or empty
    int rotate;            // degrees clockwise: 0, 90, 180 or 270
    int width;             // 0 for a vector tube
    int height;

    bool portrait() const { return rotate == 90 || rotate == 270; }
};

// One player's controls, the same for every player; no control at all when `type` is empty.
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
    bool romPresent;          // a zip for it lies in the cabinet
    std::string_view options; // words of its own in the section Mameoptions, or empty
};

std::span<const DemoGame> demoGames();

// The entry of that name, or null.
const DemoGame* findDemoGame(std::string_view name);
