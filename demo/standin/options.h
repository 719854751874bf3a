// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of the stand-in emulator. Read once by its main program. Unknown arguments are skipped, so
// that options of the real emulator do no harm.
#pragma once

#include <optional>
#include <string>

struct StandinOptions {
    bool listXml = false;
    std::string gameName;       // empty if none was given
    std::optional<int> seconds; // duration of the game; without it, until Escape
    int exitCode = 0;
    bool verbose = false; // prints each key event on standard output
};

StandinOptions readStandinOptions(int argc, char** argv);
