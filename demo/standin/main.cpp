// demo-mame, the stand-in emulator of the demonstration cabinet. `-listxml` writes the list of its games; a
// game's name shows that game until Escape, or for `-seconds N`, and the program ends with `-exitcode N`;
// `-verbose` names each key that arrives.

#include "games.h"
#include "standin/game_list_xml.h"
#include "standin/game_window.h"
#include "standin/options.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace {

// What a game costs in time where there is no display to show it on.
constexpr int DefaultSecondsUnseen = 1;

enum ExitCode { Good = 0, WriteFailed = 1, Usage = 2, UnknownGame = 5, Terminated = 143 };

} // namespace

int main(int argc, char** argv) {
    StandinOptions options = readStandinOptions(argc, argv);
    if (options.listXml)
        return writeGameListXml(stdout) ? Good : WriteFailed;
    if (options.gameName.empty()) {
        std::fputs("usage: demo-mame -listxml | GAME [-seconds N] [-exitcode N] [-verbose]\n", stderr);
        return Usage;
    }
    const DemoGame* game = findDemoGame(options.gameName);
    if (game == nullptr) {
        std::fprintf(stderr, "demo-mame: unknown game \"%s\"\n", options.gameName.c_str());
        return UnknownGame;
    }
    GameEnd end = playInWindow(*game, options);
    if (end == GameEnd::NoDisplay)
        std::this_thread::sleep_for(std::chrono::seconds(options.seconds.value_or(DefaultSecondsUnseen)));
    return end == GameEnd::Terminated ? static_cast<int>(Terminated) : options.exitCode;
}
