// SPDX-License-Identifier: GPL-3.0-or-later
// demo-mame, the stand-in emulator of the demonstration cabinet. `-listxml` writes the list of its games.
// With a game's name it runs that game until Escape, or for `-seconds N`, and then exits with the code of
// `-exitcode N`; `-verbose` prints each key event.

#include "games.h"
#include "standin/game_list_xml.h"
#include "standin/game_window.h"
#include "standin/options.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace {

// Duration of a game without a display.
constexpr int defaultSecondsUnseen = 1;

enum ExitCode { good = 0, writeFailed = 1, usage = 2, unknownGame = 5, terminated = 143 };

} // namespace

int main(int argc, char** argv) {
    StandinOptions options = readStandinOptions(argc, argv);
    if (options.listXml) {
        return writeGameListXml(stdout) ? good : writeFailed;
    }
    if (options.gameName.empty()) {
        std::fputs("usage: demo-mame -listxml | GAME [-seconds N] [-exitcode N] [-verbose]\n", stderr);
        return usage;
    }
    const DemoGame* game = findDemoGame(options.gameName);
    if (!game) {
        std::fprintf(stderr, "demo-mame: unknown game \"%s\"\n", options.gameName.c_str());
        return unknownGame;
    }
    GameEnd end = playInWindow(*game, options);
    if (end == GameEnd::noDisplay) {
        std::this_thread::sleep_for(std::chrono::seconds(options.seconds.value_or(defaultSecondsUnseen)));
    }
    return end == GameEnd::terminated ? static_cast<int>(terminated) : options.exitCode;
}
