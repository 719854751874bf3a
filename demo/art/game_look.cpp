// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/game_look.h"

#include "standin/pixel_canvas.h"

#include <array>
#include <cstdlib>

namespace {

struct SceneryWord {
    std::string_view word; // anywhere in the title
    Scenery scenery;
};

constexpr SceneryWord sceneryWords[] = {
    {"Moon", Scenery::space},         {"Comet", Scenery::space},      {"Gravity", Scenery::space},
    {"Astro", Scenery::space},        {"Quantum", Scenery::space},    {"Robot", Scenery::space},
    {"Ferry", Scenery::sea},          {"Barnacle", Scenery::sea},     {"Fujitsubo", Scenery::sea},
    {"Lighthouse", Scenery::sea},     {"Submarine", Scenery::sea},    {"Aquarium", Scenery::sea},
    {"Harbour", Scenery::sea},        {"Swamp", Scenery::sea},        {"Goldfish", Scenery::sea},
    {"Elevator", Scenery::city},      {"Noodle", Scenery::city},      {"Night Bus", Scenery::city},
    {"Mecha", Scenery::city},         {"Kikai", Scenery::city},       {"Hotel", Scenery::city},
    {"Iron", Scenery::city},          {"Kitchen", Scenery::city},     {"Fists", Scenery::city},
    {"Rally", Scenery::road},         {"Lane", Scenery::road},        {"Kart", Scenery::road},
    {"Turbo", Scenery::road},         {"Express", Scenery::road},     {"Senbei", Scenery::road},
    {"Mower", Scenery::hills},        {"Sky Picnic", Scenery::hills}, {"Goose", Scenery::hills},
    {"Rhinos", Scenery::desert},      {"Sombrero", Scenery::desert},  {"Gato", Scenery::desert},
    {"Rodeo", Scenery::desert},       {"Stampede", Scenery::desert},  {"Samurai", Scenery::hills},
    {"Tortoise", Scenery::hills},     {"Shepherd", Scenery::hills},   {"Oslo", Scenery::snow},
    {"Penguin", Scenery::snow},       {"Snowdrift", Scenery::snow},   {"Curling", Scenery::snow},
    {"Opera", Scenery::stage},        {"Trombone", Scenery::stage},   {"Bassoon", Scenery::stage},
    {"Librarian", Scenery::stage},    {"Thumb", Scenery::stage},      {"Fencing", Scenery::stage},
    {"Diplomacy", Scenery::stage},    {"Auction", Scenery::stage},    {"Adventures", Scenery::hills},
    {"Stenographer", Scenery::stage},
};

struct MakerLettering {
    std::string_view maker; // the start of the name
    Lettering lettering;
};

constexpr MakerLettering makerLetterings[] = {
    {"Tidewater", Lettering::gold},    {"Moko", Lettering::fire},       {"Cosmo", Lettering::neon},
    {"Lantern", Lettering::storybook}, {"Borealis", Lettering::chrome}, {"Gr", Lettering::storybook},
    {"Pneumatic", Lettering::gold},    {"Halfpenny", Lettering::comic}, {"Ostrich", Lettering::comic},
    {"Kiwi", Lettering::comic},        {"Pi", Lettering::fire},         {"Vantage", Lettering::chrome},
    {"Hexagon", Lettering::neon},      {"Zembo", Lettering::fire},      {"Nocturne", Lettering::chrome},
};

Era eraOf(std::string_view year, std::uint32_t seed) {
    int number = std::atoi(std::string(year).c_str());
    if (number == 0) {
        return static_cast<Era>(seed % 5);
    }
    if (number < 1981) {
        return number < 1000 ? Era::golden : Era::seventies;
    }
    if (number < 1986) {
        return Era::golden;
    }
    if (number < 1991) {
        return Era::sixteenBit;
    }
    return number < 1997 ? Era::nineties : Era::modern;
}

Scenery sceneryOf(const DemoGame& game, std::uint32_t seed) {
    if (game.display.type == "vector") {
        return Scenery::wire;
    }
    for (const SceneryWord& row : sceneryWords) {
        if (game.description.find(row.word) != std::string_view::npos) {
            return row.scenery;
        }
    }
    constexpr std::array others = {Scenery::sunburst, Scenery::sunburst, Scenery::hills, Scenery::stage};
    return others[seed % others.size()];
}

Lettering letteringOf(const DemoGame& game, Era era, std::uint32_t seed) {
    if (era == Era::seventies && game.display.type != "vector") {
        return Lettering::rainbow;
    }
    for (const MakerLettering& row : makerLetterings) {
        if (game.manufacturer.starts_with(row.maker)) {
            return row.lettering;
        }
    }
    return seed % 2 == 0 ? Lettering::gold : Lettering::comic;
}

// A scenery with a typical colour is only tinted by the game's hue.
void mixColours(GameLook& look) {
    double night = look.hue;
    switch (look.scenery) {
    case Scenery::sea:
        night = 0.55 + (look.hue - 0.5) * 0.12;
        break;
    case Scenery::snow:
        night = 0.60 + (look.hue - 0.5) * 0.14;
        break;
    case Scenery::desert:
        night = 0.95 + (look.hue - 0.5) * 0.16;
        break;
    case Scenery::space:
        night = 0.72 + (look.hue - 0.5) * 0.3;
        break;
    case Scenery::stage:
        night = 0.97 + (look.hue - 0.5) * 0.3;
        break;
    case Scenery::sunburst:
    case Scenery::wire:
        break;
    default: // any hue from green-blue to red; yellows look muddy when dark
        night = 0.48 + look.hue * 0.5;
        break;
    }
    double strength = look.era == Era::seventies ? 0.75 : 0.9;
    look.deep = tintOf(night, strength, 0.2);
    look.main = tintOf(night + 0.05, strength * 0.9, 0.62);
    look.warm = tintOf(night + (look.seed % 2 == 0 ? 0.38 : -0.36), 0.62, 1.0);
    look.accent = tintOf(night + 0.52, 0.8, 1.0);
}

std::string withoutBrackets(std::string_view description) {
    std::size_t bracket = description.find(" (");
    return std::string(description.substr(0, bracket));
}

} // namespace

GameLook lookOf(const DemoGame& game) {
    // A clone looks like its original.
    const DemoGame* original = findDemoGame(game.cloneOf);
    const DemoGame& source = original ? *original : game;
    GameLook look{};
    look.seed = seedOfName(source.name);
    look.hue = look.seed % 360 / 360.0;
    look.era = eraOf(source.year, look.seed);
    look.scenery = sceneryOf(source, look.seed);
    look.lettering = letteringOf(source, look.era, look.seed);
    mixColours(look);
    look.title = withoutBrackets(game.description);
    bool known = !game.manufacturer.empty() && !game.manufacturer.starts_with("<");
    look.maker = known ? withoutBrackets(game.manufacturer) : "";
    bool dated = !game.year.empty() && game.year.find('?') == std::string_view::npos;
    look.makerYear = (dated ? std::string(game.year) + " " : "") + look.maker;
    return look;
}
