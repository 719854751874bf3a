// SPDX-License-Identifier: GPL-3.0-or-later
#include "games.h"

#include <algorithm>

namespace {

constexpr DemoDisplay wide{"raster", 0, 256, 224};
constexpr DemoDisplay wideLarge{"raster", 0, 384, 224};
constexpr DemoDisplay wideModern{"raster", 0, 640, 480};
constexpr DemoDisplay cartridge{"raster", 0, 320, 224};
constexpr DemoDisplay upsideDown{"raster", 180, 256, 240};
constexpr DemoDisplay tall{"raster", 90, 288, 224};
constexpr DemoDisplay tallLeft{"raster", 270, 256, 224};
constexpr DemoDisplay tallLarge{"raster", 270, 384, 240};
constexpr DemoDisplay vector{"vector", 0, 0, 0};
constexpr DemoDisplay tallVector{"vector", 270, 0, 0};
constexpr DemoDisplay lcd{"lcd", 0, 240, 160};
constexpr DemoDisplay noDisplay{"", 0, 0, 0};

constexpr DemoControl noControl{1, 0, "", "", 0};

constexpr bool rom = true;
constexpr bool noRom = false;

constexpr auto game = DemoKind::game;

// clang-format off
// name, description, year, maker, clone of, ROMs of, kind, display, {players, coins, control, ways, buttons}, ROM, options
constexpr DemoGame games[] = {
    // The first years: one tube, one idea, one coin.
    {"paddlegs", "Paddle Goose", "1978", "Ostrich Electronics", "", "", game, wide, {2, 1, "paddle", "", 0}, rom, ""},
    {"gravsnal", "Gravity Snail", "1978", "Tidewater Amusements", "", "", game, tallLeft, {1, 1, "joy", "2", 1}, rom, ""},
    {"fogferry", "Fog Ferry", "1978", "Halfpenny Coin Works", "", "", game, upsideDown, {1, 1, "dial", "", 0}, rom, ""},
    {"moonmop", "Moon Mop", "1979", "Ostrich Electronics", "", "", game, tall, {2, 1, "joy", "2", 1}, rom, ""},
    {"moonmopb", "Moon Mop (bootleg)", "1979", "bootleg", "moonmop", "moonmop", game, tall, {2, 1, "joy", "2", 1}, noRom, ""},
    {"cometwsh", "Comet Laundry", "1979", "Cosmo-Tronique", "", "", game, vector, {2, 1, "only_buttons", "", 5}, rom, ""},
    {"cometws2", "Comet Laundry Deluxe", "1980", "Cosmo-Tronique", "", "", game, vector, {2, 2, "only_buttons", "", 5}, rom, ""},
    {"vvicar", "The Vector Vicar", "1980", "Cosmo-Tronique", "", "", game, tallVector, {1, 2, "dial", "", 2}, rom, ""},
    {"lockoper", "Combination Lock Opera", "1980", "Lantern Lane", "", "", game, tall, {1, 1, "dial", "", 1}, rom, ""},
    {"wobblsub", "Wobbly Submarine", "1980", "Halfpenny Coin Works", "", "", game, vector, {1, 1, "joy", "8", 2}, noRom, ""},
    // The golden years.
    {"barnacle", "Barnacle Brigade", "1981", "Tidewater Amusements", "", "", game, tall, {2, 2, "joy", "4", 1}, rom, "-seconds 120"},
    {"barnaclj", "Fujitsubo Shōnentai (Japan)", "1981", "Moko Denshi", "barnacle", "barnacle", game, tall, {2, 2, "joy", "4", 1}, rom, ""},
    {"barnaclt", "Barnacle Brigade (tournament)", "1982", "Tidewater Amusements", "barnacle", "barnacle", game, tall, {2, 2, "joy", "4", 1}, rom, "-seconds 90"},
    {"polittnk", "Polite Tank", "1981", "Borealis Coin-Op", "", "", game, vector, {2, 2, "doublejoy", "vertical2", 1}, rom, ""},
    {"lightgrd", "A Lighthouse Holds a Grudge", "1981", "Lantern Lane", "", "", game, tallLeft, {2, 1, "dial", "", 1}, rom, ""},
    {"pngpost", "Pocket Penguin Postman", "1982", "Moko Denshi", "", "", game, lcd, {1, 0, "joy", "4", 1}, rom, ""},
    {"minimowr", "Mini Mower", "1982", "Moko Denshi", "", "", game, lcd, {1, 0, "joy", "2", 0}, rom, ""},
    {"elevetiq", "Elevator Etiquette", "1982", "Grüber & Söhne", "", "", game, tall, {2, 2, "joy", "vertical2", 1}, rom, ""},
    {"elevetiu", "Elevator Etiquette (rude version)", "1982", "Grüber & Söhne (Halfpenny license)", "elevetiq", "elevetiq", game, tall, {2, 2, "joy", "vertical2", 1}, noRom, ""},
    {"yakrally", "Yak Rally", "1982", "Borealis Coin-Op", "", "", game, tall, {2, 2, "trackball", "", 1}, rom, ""},
    {"teatemp", "Teapot Tempest", "1983", "Pneumatic Pictures", "", "", game, tall, {2, 2, "joy", "4", 2}, rom, ""},
    {"teatempo", "Teapot Tempest (older, unsweetened)", "198?", "Pneumatic Pictures", "teatemp", "teatemp", game, tall, {2, 2, "joy", "4", 2}, rom, ""},
    {"spsquad", "Salt & Pepper Squad", "1983", "Tidewater Amusements", "", "", game, tallLeft, {2, 2, "joy", "8", 2}, rom, ""},
    {"cardbsam", "The Cardboard Samurai", "1983", "Moko Denshi", "", "", game, wide, {2, 2, "doublejoy", "8", 0}, rom, ""},
    {"gherkin", "Gherkin Stampede", "1984", "Halfpenny Coin Works", "", "", game, tallLeft, {2, 2, "joy", "3 (half4)", 1}, rom, ""},
    {"owlsoslo", "Owls over Oslo", "1984", "Borealis Coin-Op", "", "", game, tall, {2, 2, "joy", "8", 1}, rom, ""},
    {"whomoon", "Who \"Borrowed\" the Moon?", "1984", "Lantern Lane", "", "", game, wide, {2, 2, "lightgun", "", 1}, rom, ""},
    {"srgato", "Las nueve vidas de Señor Gato", "1985", "Piñata Taller", "", "", game, wide, {2, 2, "joy", "8", 2}, rom, ""},
    {"srgatou", "Nine Lives of Señor Gato (US)", "1985", "Piñata Taller (Kiwi Voltage license)", "srgato", "srgato", game, wide, {2, 2, "joy", "8", 2}, rom, ""},
    {"skypicnc", "Baron Brumm's Sky Picnic", "1985", "Grüber & Söhne", "", "", game, wide, {1, 2, "stick", "", 2}, rom, ""},
    {"skypicnp", "Baron Brumm's Sky Picnic (prototype)", "198?", "Grüber & Söhne", "skypicnc", "skypicnc", game, wide, {1, 2, "stick", "", 2}, noRom, ""},
    {"craneher", "Harbour Crane Hero", "1986", "Tidewater Amusements", "", "", game, wideLarge, {1, 2, "stick", "", 3}, rom, ""},
    {"swampacc", "Swamp Accountant", "1986", "Ostrich Electronics", "", "", game, wide, {2, 2, "joy", "8", 3}, rom, ""},
    {"biscuitx", "Biscuit Express", "1986", "Kiwi Voltage", "", "", game, tallLeft, {2, 2, "joy", "2", 2}, noRom, ""},
    {"biscuitj", "Senbei Kyūkō (Japan)", "1986", "Moko Denshi", "biscuitx", "biscuitx", game, tallLeft, {2, 2, "joy", "2", 2}, rom, ""},
    // Sixteen bits and more buttons.
    {"tbeekeep", "Turbo Beekeeper", "1987", "Vantage Peak", "", "", game, wideLarge, {1, 2, "paddle", "", 2}, rom, ""},
    {"stenofry", "The Stenographer's Fury", "1987", "Halfpenny Coin Works", "", "", game, wide, {1, 1, "keyboard", "", 8}, rom, ""},
    {"curlinf", "Curling Inferno", "1988", "Borealis Coin-Op", "", "", game, tallLarge, {2, 2, "trackball", "", 2}, rom, ""},
    {"robotpst", "Pasta Robot Gnocchi-Zero", "1988", "Pneumatic Pictures", "", "", game, wideLarge, {2, 2, "triplejoy", "8", 0}, rom, ""},
    {"sumolib", "Sumo Librarian", "1989", "Moko Denshi", "", "", game, wideLarge, {2, 2, "joy", "8", 3}, rom, ""},
    {"sumolibk", "Sumo Librarian (whisper edition)", "1989", "Moko Denshi", "sumolib", "sumolib", game, wideLarge, {2, 2, "joy", "8", 3}, rom, "-seconds 60"},
    {"sixllama", "Six-Lane Llama", "1989", "Vantage Peak", "", "", game, wideLarge, {6, 4, "joy", "8", 1}, rom, ""},
    {"rtrombon", "Rogue Trombone", "1990", "Pneumatic Pictures", "", "", game, wide, {2, 2, "positional", "", 4}, rom, ""},
    {"duckdipl", "Duck Diplomacy", "1990", "Ostrich Electronics", "", "", game, wide, {3, 3, "lightgun", "", 2}, rom, ""},
    {"mjbus", "Mahjong Night Bus", "1991", "Moko Denshi", "", "", game, wideLarge, {1, 2, "mahjong", "", 0}, rom, ""},
    {"qyodel", "Quantum Yodel", "1991", "Grüber & Söhne", "", "", game, tallLarge, {2, 2, "joy", "8", 4}, rom, ""},
    {"qyodela", "Quantum Yodel (echo bug fixed)", "1991", "Grüber & Söhne", "qyodel", "qyodel", game, tallLarge, {2, 2, "joy", "8", 4}, rom, ""},
    {"threethm", "Threefold Thumb War", "1991", "Kiwi Voltage", "", "", game, wide, {3, 3, "only_buttons", "", 6}, rom, ""},
    {"relayrhn", "Relay of the Rhinos", "1992", "Vantage Peak", "", "", game, wideLarge, {4, 4, "joy", "8", 2}, rom, ""},
    {"ueberkff", "Café Überfall", "1992", "Grüber & Söhne", "", "", game, wideLarge, {2, 2, "joy", "8", 5}, rom, ""},
    {"thistlew", "The Exceedingly Long and Frankly Unnecessary Adventures of Professor Archibald Thistlewick and His Remarkable Steam-Driven Umbrella", "1993", "Pneumatic Pictures", "", "", game, wideLarge, {2, 2, "joy", "8", 2}, rom, ""},
    {"hanahotl", "Hanafuda Hotel", "1993", "Moko Denshi", "", "", game, wideLarge, {1, 2, "hanafuda", "", 0}, noRom, ""},
    {"fivefenc", "Five-a-Side Fencing", "1993", "Borealis Coin-Op", "", "", game, wideLarge, {5, 4, "joy", "5 (half8)", 2}, rom, ""},
    {"mechagma", "Mecha Grandma", "1994", "Hexagon Toybox", "", "", game, tallLarge, {2, 2, "joy", "8", 3}, rom, ""},
    {"mechagmj", "Kikai Obaachan (Japan)", "1994", "Moko Denshi", "mechagma", "mechagma", game, tallLarge, {2, 2, "joy", "8", 3}, rom, ""},
    {"mechagm2", "Mecha Grandma II: Knit Happens", "1996", "Hexagon Toybox", "", "", game, tallLarge, {2, 2, "joy", "8", 3}, rom, ""},
    // Cartridges for one common board.
    {"neogeo", "Cartridge System BIOS", "1990", "Zembo Works", "", "", DemoKind::bios, cartridge, {2, 2, "joy", "8", 4}, rom, ""},
    {"ironpara", "Iron Parasol", "1991", "Zembo Works", "", "neogeo", game, cartridge, {2, 2, "joy", "8", 3}, rom, ""},
    {"ironpar2", "Iron Parasol 2: Rain Check", "1993", "Zembo Works", "", "neogeo", game, cartridge, {2, 2, "joy", "8", 3}, rom, ""},
    {"fistetiq", "Fists of Etiquette", "1994", "Zembo Works", "", "neogeo", game, cartridge, {2, 2, "joy", "8", 4}, rom, ""},
    {"fistetih", "Fists of Etiquette (pinky out)", "1995", "Zembo Works", "fistetiq", "fistetiq", game, cartridge, {2, 2, "joy", "8", 4}, rom, ""},
    {"thndtort", "Thunder Tortoise", "1996", "Nocturne Systems", "", "neogeo", game, cartridge, {2, 2, "joy", "8", 2}, rom, ""},
    {"kitchrmb", "Kitchen Drawer Rumble", "1998", "Nocturne Systems", "", "neogeo", game, cartridge, {2, 2, "joy", "8", 4}, noRom, ""},
    // The last years: more players, more pixels.
    {"neonnood", "Neon Noodle Nights", "1997", "Hexagon Toybox", "", "", game, wideModern, {2, 2, "joy", "8", 6}, rom, ""},
    {"eightauc", "Eight-Armed Auction", "1998", "Vantage Peak", "", "", game, wideModern, {8, 4, "only_buttons", "", 3}, rom, ""},
    {"sevensun", "Seven Suns & a Sombrero", "1998", "Piñata Taller", "", "", game, wideModern, {7, 4, "joy", "16", 1}, rom, ""},
    {"aquamode", "Aquarium Attract Mode", "1999", "Nocturne Systems", "", "", game, wideModern, noControl, rom, ""},
    {"staplegx", "Astro Stapler GX", "2000", "Hexagon Toybox", "", "", game, wideModern, {2, 3, "stick", "", 7}, rom, ""},
    {"snowpost", "Snowdrift Postman", "2001", "Borealis Coin-Op", "", "", game, wideModern, {2, 2, "pedal", "", 2}, rom, ""},
    {"tofukart", "Tofu Kart Grand Tour", "2002", "Vantage Peak", "", "", game, wideModern, {1, 2, "paddle", "", 4}, rom, ""},
    {"bassoon", "The Last Bassoon", "2003", "Nocturne Systems", "", "", game, tallLarge, {2, 2, "joy", "8", 2}, rom, ""},
    {"cloudhrd", "Cloud Shepherd", "2005", "Hexagon Toybox", "", "", game, wideModern, {2, 2, "joy", "8", 8}, rom, ""},
    // Boards of unknown year, one that is out of order, and one without a display.
    {"mystbox", "Mystery Box from the Attic", "", "", "", "", game, wide, {1, 1, "joy", "4", 1}, rom, ""},
    {"tinrodeo", "Tin Can Rodeo", "19??", "<unknown>", "", "", game, wide, {2, 1, "joy", "8", 1}, rom, ""},
    {"gobsmack", "Gobsmackers", "198?", "Halfpenny Coin Works", "", "", game, tallLeft, {2, 1, "keypad", "", 4}, rom, ""},
    {"cardshrk", "Goldfish Poker", "199?", "Kiwi Voltage", "", "", game, wide, {1, 4, "gambling", "", 8}, rom, ""},
    {"ghostout", "Ghost of a Gas Station", "????", "Lantern Lane", "", "", game, tallVector, {1, 1, "mouse", "", 1}, rom, ""},
    {"outorder", "Out of Order", "1989", "Halfpenny Coin Works", "", "", game, wide, {1, 1, "joy", "4", 1}, rom, "-seconds 2 -exitcode 3"},
    {"grabgret", "Grabbing Gretel (claw machine)", "1990", "Grüber & Söhne", "", "", DemoKind::mechanical, noDisplay, {1, 1, "joy", "4", 1}, rom, ""},
    // Entries of the list that are no games.
    {"unfinsym", "Unfinished Symphony (never completed)", "1995", "Pneumatic Pictures", "", "", DemoKind::notRunnable, wideLarge, {1, 1, "joy", "8", 2}, rom, ""},
    {"mokotile", "Moko MK-7 Tile Generator", "", "Moko Denshi", "", "", DemoKind::device, noDisplay, noControl, noRom, ""},
    {"humboard", "Humdinger Sound Board", "", "Pneumatic Pictures", "", "", DemoKind::device, noDisplay, noControl, noRom, ""},
};
// clang-format on

} // namespace

std::span<const DemoGame> demoGames() {
    return games;
}

const DemoGame* findDemoGame(std::string_view name) {
    auto found = std::ranges::find(games, name, &DemoGame::name);
    return found == std::end(games) ? nullptr : found;
}
