// The command line of the stand-in emulator. Read once by its
// main program; words that it does not know are skipped, as
// the options of a real emulator would mean nothing to it.
#pragma once

#include <optional>
#include <string>

struct StandinOptions {
    bool listXml = false;
    std::string gameName;       // empty when none was given
    std::optional<int> seconds; // how long the game lasts; without it, until Escape
    int exitCode = 0;
    bool verbose = false; // names each key on standard output
};

StandinOptions readStandinOptions(int argc, char** argv);
