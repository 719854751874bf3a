#include "games.h"

#include <algorithm>

namespace {

constexpr DemoDisplay Wide{"raster", 0, 256, 224};
constexpr DemoDisplay WideLarge{"raster", 0, 384, 224};
constexpr DemoDisplay WideModern{"raster", 0, 640, 480};
constexpr DemoDisplay Cartridge{"raster", 0, 320, 224};
constexpr DemoDisplay UpsideDown{"raster", 180, 256, 240};
constexpr DemoDisplay Tall{"raster", 90, 288, 224};
constexpr DemoDisplay TallLeft{"raster", 270, 256, 224};
constexpr DemoDisplay TallLarge{"raster", 270, 384, 240};
constexpr DemoDisplay Vector{"vector", 0, 0, 0};
constexpr DemoDisplay TallVector{"vector", 270, 0, 0};
constexpr DemoDisplay Lcd{"lcd", 0, 240, 160};
constexpr DemoDisplay NoDisplay{"", 0, 0, 0};

constexpr DemoControl NoControl{1, 0, "", "", 0};

constexpr bool Rom = true;
constexpr bool NoRom = false;

constexpr auto Game = DemoKind::Game;

// clang-format off
// name, description, year, maker, clone of, ROMs of, kind, display, {players, coins, control, ways, buttons}, ROM, options
constexpr DemoGame Games[] = {
    // The first years: one tube, one idea, one coin.
    {"paddlegs", "Paddle Goose", "1978", "Ostrich Electronics", "", "", Game, Wide, {2, 1, "paddle", "", 0}, Rom, ""},
    {"gravsnal", "Gravity Snail", "1978", "Tidewater Amusements", "", "", Game, TallLeft, {1, 1, "joy", "2", 1}, Rom, ""},
    {"fogferry", "Fog Ferry", "1978", "Halfpenny Coin Works", "", "", Game, UpsideDown, {1, 1, "dial", "", 0}, Rom, ""},
    {"moonmop", "Moon Mop", "1979", "Ostrich Electronics", "", "", Game, Tall, {2, 1, "joy", "2", 1}, Rom, ""},
    {"moonmopb", "Moon Mop (bootleg)", "1979", "bootleg", "moonmop", "moonmop", Game, Tall, {2, 1, "joy", "2", 1}, NoRom, ""},
    {"cometwsh", "Comet Laundry", "1979", "Cosmo-Tronique", "", "", Game, Vector, {2, 1, "only_buttons", "", 5}, Rom, ""},
    {"cometws2", "Comet Laundry Deluxe", "1980", "Cosmo-Tronique", "", "", Game, Vector, {2, 2, "only_buttons", "", 5}, Rom, ""},
    {"vvicar", "The Vector Vicar", "1980", "Cosmo-Tronique", "", "", Game, TallVector, {1, 2, "dial", "", 2}, Rom, ""},
    {"lockoper", "Combination Lock Opera", "1980", "Lantern Lane", "", "", Game, Tall, {1, 1, "dial", "", 1}, Rom, ""},
    {"wobblsub", "Wobbly Submarine", "1980", "Halfpenny Coin Works", "", "", Game, Vector, {1, 1, "joy", "8", 2}, NoRom, ""},
    // The golden years.
    {"barnacle", "Barnacle Brigade", "1981", "Tidewater Amusements", "", "", Game, Tall, {2, 2, "joy", "4", 1}, Rom, "-seconds 120"},
    {"barnaclj", "Fujitsubo Shōnentai (Japan)", "1981", "Moko Denshi", "barnacle", "barnacle", Game, Tall, {2, 2, "joy", "4", 1}, Rom, ""},
    {"barnaclt", "Barnacle Brigade (tournament)", "1982", "Tidewater Amusements", "barnacle", "barnacle", Game, Tall, {2, 2, "joy", "4", 1}, Rom, "-seconds 90"},
    {"polittnk", "Polite Tank", "1981", "Borealis Coin-Op", "", "", Game, Vector, {2, 2, "doublejoy", "vertical2", 1}, Rom, ""},
    {"lightgrd", "A Lighthouse Holds a Grudge", "1981", "Lantern Lane", "", "", Game, TallLeft, {2, 1, "dial", "", 1}, Rom, ""},
    {"pngpost", "Pocket Penguin Postman", "1982", "Moko Denshi", "", "", Game, Lcd, {1, 0, "joy", "4", 1}, Rom, ""},
    {"minimowr", "Mini Mower", "1982", "Moko Denshi", "", "", Game, Lcd, {1, 0, "joy", "2", 0}, Rom, ""},
    {"elevetiq", "Elevator Etiquette", "1982", "Grüber & Söhne", "", "", Game, Tall, {2, 2, "joy", "vertical2", 1}, Rom, ""},
    {"elevetiu", "Elevator Etiquette (rude version)", "1982", "Grüber & Söhne (Halfpenny license)", "elevetiq", "elevetiq", Game, Tall, {2, 2, "joy", "vertical2", 1}, NoRom, ""},
    {"yakrally", "Yak Rally", "1982", "Borealis Coin-Op", "", "", Game, Tall, {2, 2, "trackball", "", 1}, Rom, ""},
    {"teatemp", "Teapot Tempest", "1983", "Pneumatic Pictures", "", "", Game, Tall, {2, 2, "joy", "4", 2}, Rom, ""},
    {"teatempo", "Teapot Tempest (older, unsweetened)", "198?", "Pneumatic Pictures", "teatemp", "teatemp", Game, Tall, {2, 2, "joy", "4", 2}, Rom, ""},
    {"spsquad", "Salt & Pepper Squad", "1983", "Tidewater Amusements", "", "", Game, TallLeft, {2, 2, "joy", "8", 2}, Rom, ""},
    {"cardbsam", "The Cardboard Samurai", "1983", "Moko Denshi", "", "", Game, Wide, {2, 2, "doublejoy", "8", 0}, Rom, ""},
    {"gherkin", "Gherkin Stampede", "1984", "Halfpenny Coin Works", "", "", Game, TallLeft, {2, 2, "joy", "3 (half4)", 1}, Rom, ""},
    {"owlsoslo", "Owls over Oslo", "1984", "Borealis Coin-Op", "", "", Game, Tall, {2, 2, "joy", "8", 1}, Rom, ""},
    {"whomoon", "Who \"Borrowed\" the Moon?", "1984", "Lantern Lane", "", "", Game, Wide, {2, 2, "lightgun", "", 1}, Rom, ""},
    {"srgato", "Las nueve vidas de Señor Gato", "1985", "Piñata Taller", "", "", Game, Wide, {2, 2, "joy", "8", 2}, Rom, ""},
    {"srgatou", "Nine Lives of Señor Gato (US)", "1985", "Piñata Taller (Kiwi Voltage license)", "srgato", "srgato", Game, Wide, {2, 2, "joy", "8", 2}, Rom, ""},
    {"skypicnc", "Baron Brumm's Sky Picnic", "1985", "Grüber & Söhne", "", "", Game, Wide, {1, 2, "stick", "", 2}, Rom, ""},
    {"skypicnp", "Baron Brumm's Sky Picnic (prototype)", "198?", "Grüber & Söhne", "skypicnc", "skypicnc", Game, Wide, {1, 2, "stick", "", 2}, NoRom, ""},
    {"craneher", "Harbour Crane Hero", "1986", "Tidewater Amusements", "", "", Game, WideLarge, {1, 2, "stick", "", 3}, Rom, ""},
    {"swampacc", "Swamp Accountant", "1986", "Ostrich Electronics", "", "", Game, Wide, {2, 2, "joy", "8", 3}, Rom, ""},
    {"biscuitx", "Biscuit Express", "1986", "Kiwi Voltage", "", "", Game, TallLeft, {2, 2, "joy", "2", 2}, NoRom, ""},
    {"biscuitj", "Senbei Kyūkō (Japan)", "1986", "Moko Denshi", "biscuitx", "biscuitx", Game, TallLeft, {2, 2, "joy", "2", 2}, Rom, ""},
    // Sixteen bits and more buttons.
    {"tbeekeep", "Turbo Beekeeper", "1987", "Vantage Peak", "", "", Game, WideLarge, {1, 2, "paddle", "", 2}, Rom, ""},
    {"stenofry", "The Stenographer's Fury", "1987", "Halfpenny Coin Works", "", "", Game, Wide, {1, 1, "keyboard", "", 8}, Rom, ""},
    {"curlinf", "Curling Inferno", "1988", "Borealis Coin-Op", "", "", Game, TallLarge, {2, 2, "trackball", "", 2}, Rom, ""},
    {"robotpst", "Pasta Robot Gnocchi-Zero", "1988", "Pneumatic Pictures", "", "", Game, WideLarge, {2, 2, "triplejoy", "8", 0}, Rom, ""},
    {"sumolib", "Sumo Librarian", "1989", "Moko Denshi", "", "", Game, WideLarge, {2, 2, "joy", "8", 3}, Rom, ""},
    {"sumolibk", "Sumo Librarian (whisper edition)", "1989", "Moko Denshi", "sumolib", "sumolib", Game, WideLarge, {2, 2, "joy", "8", 3}, Rom, "-seconds 60"},
    {"sixllama", "Six-Lane Llama", "1989", "Vantage Peak", "", "", Game, WideLarge, {6, 4, "joy", "8", 1}, Rom, ""},
    {"rtrombon", "Rogue Trombone", "1990", "Pneumatic Pictures", "", "", Game, Wide, {2, 2, "positional", "", 4}, Rom, ""},
    {"duckdipl", "Duck Diplomacy", "1990", "Ostrich Electronics", "", "", Game, Wide, {3, 3, "lightgun", "", 2}, Rom, ""},
    {"mjbus", "Mahjong Night Bus", "1991", "Moko Denshi", "", "", Game, WideLarge, {1, 2, "mahjong", "", 0}, Rom, ""},
    {"qyodel", "Quantum Yodel", "1991", "Grüber & Söhne", "", "", Game, TallLarge, {2, 2, "joy", "8", 4}, Rom, ""},
    {"qyodela", "Quantum Yodel (echo bug fixed)", "1991", "Grüber & Söhne", "qyodel", "qyodel", Game, TallLarge, {2, 2, "joy", "8", 4}, Rom, ""},
    {"threethm", "Threefold Thumb War", "1991", "Kiwi Voltage", "", "", Game, Wide, {3, 3, "only_buttons", "", 6}, Rom, ""},
    {"relayrhn", "Relay of the Rhinos", "1992", "Vantage Peak", "", "", Game, WideLarge, {4, 4, "joy", "8", 2}, Rom, ""},
    {"ueberkff", "Café Überfall", "1992", "Grüber & Söhne", "", "", Game, WideLarge, {2, 2, "joy", "8", 5}, Rom, ""},
    {"thistlew", "The Exceedingly Long and Frankly Unnecessary Adventures of Professor Archibald Thistlewick and His Remarkable Steam-Driven Umbrella", "1993", "Pneumatic Pictures", "", "", Game, WideLarge, {2, 2, "joy", "8", 2}, Rom, ""},
    {"hanahotl", "Hanafuda Hotel", "1993", "Moko Denshi", "", "", Game, WideLarge, {1, 2, "hanafuda", "", 0}, NoRom, ""},
    {"fivefenc", "Five-a-Side Fencing", "1993", "Borealis Coin-Op", "", "", Game, WideLarge, {5, 4, "joy", "5 (half8)", 2}, Rom, ""},
    {"mechagma", "Mecha Grandma", "1994", "Hexagon Toybox", "", "", Game, TallLarge, {2, 2, "joy", "8", 3}, Rom, ""},
    {"mechagmj", "Kikai Obaachan (Japan)", "1994", "Moko Denshi", "mechagma", "mechagma", Game, TallLarge, {2, 2, "joy", "8", 3}, Rom, ""},
    {"mechagm2", "Mecha Grandma II: Knit Happens", "1996", "Hexagon Toybox", "", "", Game, TallLarge, {2, 2, "joy", "8", 3}, Rom, ""},
    // Cartridges for one common board.
    {"neogeo", "Cartridge System BIOS", "1990", "Zembo Works", "", "", DemoKind::Bios, Cartridge, {2, 2, "joy", "8", 4}, Rom, ""},
    {"ironpara", "Iron Parasol", "1991", "Zembo Works", "", "neogeo", Game, Cartridge, {2, 2, "joy", "8", 3}, Rom, ""},
    {"ironpar2", "Iron Parasol 2: Rain Check", "1993", "Zembo Works", "", "neogeo", Game, Cartridge, {2, 2, "joy", "8", 3}, Rom, ""},
    {"fistetiq", "Fists of Etiquette", "1994", "Zembo Works", "", "neogeo", Game, Cartridge, {2, 2, "joy", "8", 4}, Rom, ""},
    {"fistetih", "Fists of Etiquette (pinky out)", "1995", "Zembo Works", "fistetiq", "fistetiq", Game, Cartridge, {2, 2, "joy", "8", 4}, Rom, ""},
    {"thndtort", "Thunder Tortoise", "1996", "Nocturne Systems", "", "neogeo", Game, Cartridge, {2, 2, "joy", "8", 2}, Rom, ""},
    {"kitchrmb", "Kitchen Drawer Rumble", "1998", "Nocturne Systems", "", "neogeo", Game, Cartridge, {2, 2, "joy", "8", 4}, NoRom, ""},
    // The last years: more players, more pixels.
    {"neonnood", "Neon Noodle Nights", "1997", "Hexagon Toybox", "", "", Game, WideModern, {2, 2, "joy", "8", 6}, Rom, ""},
    {"eightauc", "Eight-Armed Auction", "1998", "Vantage Peak", "", "", Game, WideModern, {8, 4, "only_buttons", "", 3}, Rom, ""},
    {"sevensun", "Seven Suns & a Sombrero", "1998", "Piñata Taller", "", "", Game, WideModern, {7, 4, "joy", "16", 1}, Rom, ""},
    {"aquamode", "Aquarium Attract Mode", "1999", "Nocturne Systems", "", "", Game, WideModern, NoControl, Rom, ""},
    {"staplegx", "Astro Stapler GX", "2000", "Hexagon Toybox", "", "", Game, WideModern, {2, 3, "stick", "", 7}, Rom, ""},
    {"snowpost", "Snowdrift Postman", "2001", "Borealis Coin-Op", "", "", Game, WideModern, {2, 2, "pedal", "", 2}, Rom, ""},
    {"tofukart", "Tofu Kart Grand Tour", "2002", "Vantage Peak", "", "", Game, WideModern, {1, 2, "paddle", "", 4}, Rom, ""},
    {"bassoon", "The Last Bassoon", "2003", "Nocturne Systems", "", "", Game, TallLarge, {2, 2, "joy", "8", 2}, Rom, ""},
    {"cloudhrd", "Cloud Shepherd", "2005", "Hexagon Toybox", "", "", Game, WideModern, {2, 2, "joy", "8", 8}, Rom, ""},
    // Boards that nobody could date, one that is out of order, and one without a tube.
    {"mystbox", "Mystery Box from the Attic", "", "", "", "", Game, Wide, {1, 1, "joy", "4", 1}, Rom, ""},
    {"tinrodeo", "Tin Can Rodeo", "19??", "<unknown>", "", "", Game, Wide, {2, 1, "joy", "8", 1}, Rom, ""},
    {"gobsmack", "Gobsmackers", "198?", "Halfpenny Coin Works", "", "", Game, TallLeft, {2, 1, "keypad", "", 4}, Rom, ""},
    {"cardshrk", "Goldfish Poker", "199?", "Kiwi Voltage", "", "", Game, Wide, {1, 4, "gambling", "", 8}, Rom, ""},
    {"ghostout", "Ghost of a Gas Station", "????", "Lantern Lane", "", "", Game, TallVector, {1, 1, "mouse", "", 1}, Rom, ""},
    {"outorder", "Out of Order", "1989", "Halfpenny Coin Works", "", "", Game, Wide, {1, 1, "joy", "4", 1}, Rom, "-seconds 2 -exitcode 3"},
    {"grabgret", "Grabbing Gretel (claw machine)", "1990", "Grüber & Söhne", "", "", DemoKind::Mechanical, NoDisplay, {1, 1, "joy", "4", 1}, Rom, ""},
    // What the list also holds and a player never sees.
    {"unfinsym", "Unfinished Symphony (never completed)", "1995", "Pneumatic Pictures", "", "", DemoKind::NotRunnable, WideLarge, {1, 1, "joy", "8", 2}, Rom, ""},
    {"mokotile", "Moko MK-7 Tile Generator", "", "Moko Denshi", "", "", DemoKind::Device, NoDisplay, NoControl, NoRom, ""},
    {"humboard", "Humdinger Sound Board", "", "Pneumatic Pictures", "", "", DemoKind::Device, NoDisplay, NoControl, NoRom, ""},
};
// clang-format on

} // namespace

std::span<const DemoGame> demoGames() {
    return Games;
}

const DemoGame* findDemoGame(std::string_view name) {
    auto found = std::ranges::find(Games, name, &DemoGame::name);
    return found == std::end(Games) ? nullptr : found;
}
