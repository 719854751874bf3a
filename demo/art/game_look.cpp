#include "art/game_look.h"

#include "standin/pixel_canvas.h"

#include <array>
#include <cstdlib>

namespace {

struct SceneryWord {
    std::string_view word; // anywhere in the title
    Scenery scenery;
};

constexpr SceneryWord SceneryWords[] = {
    {"Moon", Scenery::Space},         {"Comet", Scenery::Space},      {"Gravity", Scenery::Space},
    {"Astro", Scenery::Space},        {"Quantum", Scenery::Space},    {"Robot", Scenery::Space},
    {"Ferry", Scenery::Sea},          {"Barnacle", Scenery::Sea},     {"Fujitsubo", Scenery::Sea},
    {"Lighthouse", Scenery::Sea},     {"Submarine", Scenery::Sea},    {"Aquarium", Scenery::Sea},
    {"Harbour", Scenery::Sea},        {"Swamp", Scenery::Sea},        {"Goldfish", Scenery::Sea},
    {"Elevator", Scenery::City},      {"Noodle", Scenery::City},      {"Night Bus", Scenery::City},
    {"Mecha", Scenery::City},         {"Kikai", Scenery::City},       {"Hotel", Scenery::City},
    {"Iron", Scenery::City},          {"Kitchen", Scenery::City},     {"Fists", Scenery::City},
    {"Rally", Scenery::Road},         {"Lane", Scenery::Road},        {"Kart", Scenery::Road},
    {"Turbo", Scenery::Road},         {"Express", Scenery::Road},     {"Senbei", Scenery::Road},
    {"Mower", Scenery::Hills},        {"Sky Picnic", Scenery::Hills}, {"Goose", Scenery::Hills},
    {"Rhinos", Scenery::Desert},      {"Sombrero", Scenery::Desert},  {"Gato", Scenery::Desert},
    {"Rodeo", Scenery::Desert},       {"Stampede", Scenery::Desert},  {"Samurai", Scenery::Hills},
    {"Tortoise", Scenery::Hills},     {"Shepherd", Scenery::Hills},   {"Oslo", Scenery::Snow},
    {"Penguin", Scenery::Snow},       {"Snowdrift", Scenery::Snow},   {"Curling", Scenery::Snow},
    {"Opera", Scenery::Stage},        {"Trombone", Scenery::Stage},   {"Bassoon", Scenery::Stage},
    {"Librarian", Scenery::Stage},    {"Thumb", Scenery::Stage},      {"Fencing", Scenery::Stage},
    {"Diplomacy", Scenery::Stage},    {"Auction", Scenery::Stage},    {"Adventures", Scenery::Hills},
    {"Stenographer", Scenery::Stage},
};

struct MakerLettering {
    std::string_view maker; // the start of the name
    Lettering lettering;
};

constexpr MakerLettering MakerLetterings[] = {
    {"Tidewater", Lettering::Gold},    {"Moko", Lettering::Fire},       {"Cosmo", Lettering::Neon},
    {"Lantern", Lettering::Storybook}, {"Borealis", Lettering::Chrome}, {"Gr", Lettering::Storybook},
    {"Pneumatic", Lettering::Gold},    {"Halfpenny", Lettering::Comic}, {"Ostrich", Lettering::Comic},
    {"Kiwi", Lettering::Comic},        {"Pi", Lettering::Fire},         {"Vantage", Lettering::Chrome},
    {"Hexagon", Lettering::Neon},      {"Zembo", Lettering::Fire},      {"Nocturne", Lettering::Chrome},
};

Era eraOf(std::string_view year, std::uint32_t seed) {
    int number = std::atoi(std::string(year).c_str());
    if (number == 0)
        return static_cast<Era>(seed % 5);
    if (number < 1981)
        return number < 1000 ? Era::Golden : Era::Seventies;
    if (number < 1986)
        return Era::Golden;
    if (number < 1991)
        return Era::SixteenBit;
    return number < 1997 ? Era::Nineties : Era::Modern;
}

Scenery sceneryOf(const DemoGame& game, std::uint32_t seed) {
    if (game.display.type == "vector")
        return Scenery::Wire;
    for (const SceneryWord& row : SceneryWords) {
        if (game.description.find(row.word) != std::string_view::npos)
            return row.scenery;
    }
    constexpr std::array Others = {Scenery::Sunburst, Scenery::Sunburst, Scenery::Hills, Scenery::Stage};
    return Others[seed % Others.size()];
}

Lettering letteringOf(const DemoGame& game, Era era, std::uint32_t seed) {
    if (era == Era::Seventies && game.display.type != "vector")
        return Lettering::Rainbow;
    for (const MakerLettering& row : MakerLetterings) {
        if (game.manufacturer.starts_with(row.maker))
            return row.lettering;
    }
    return seed % 2 == 0 ? Lettering::Gold : Lettering::Comic;
}

// Where a scene has a colour of its own, the game's hue only shades it.
void mixColours(GameLook& look) {
    double night = look.hue;
    switch (look.scenery) {
    case Scenery::Sea:
        night = 0.55 + (look.hue - 0.5) * 0.12;
        break;
    case Scenery::Snow:
        night = 0.60 + (look.hue - 0.5) * 0.14;
        break;
    case Scenery::Desert:
        night = 0.95 + (look.hue - 0.5) * 0.16;
        break;
    case Scenery::Space:
        night = 0.72 + (look.hue - 0.5) * 0.3;
        break;
    case Scenery::Stage:
        night = 0.97 + (look.hue - 0.5) * 0.3;
        break;
    case Scenery::Sunburst:
    case Scenery::Wire:
        break;
    default: // a dusk of any colour from green-blue to red; the yellows look muddy in the dark
        night = 0.48 + look.hue * 0.5;
        break;
    }
    double strength = look.era == Era::Seventies ? 0.75 : 0.9;
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
    // A clone looks like the game that it is a version of.
    const DemoGame* original = findDemoGame(game.cloneOf);
    const DemoGame& source = original != nullptr ? *original : game;
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
