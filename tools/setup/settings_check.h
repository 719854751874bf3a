// SPDX-License-Identifier: GPL-3.0-or-later
// Checks an ini file line by line and counts what its folders hold for the emulator's games. Called by
// `kestravox-setup --check`. Changes nothing but the working directory, which becomes the folder of the file,
// since the front end is started there.
#pragma once

#include <string>
#include <vector>

struct CheckFinding {
    int line;       // in the ini file, from 1; 0 for a finding that concerns no line
    bool isProblem; // otherwise only worth knowing
    std::string text;
};

struct CheckResult {
    std::vector<CheckFinding> findings; // in the order of the lines; those of no line are the last
    std::vector<std::string> counts;    // lines for the user, such as "Marquees: 812 files, for 1204 games"
};

// Fills the settings and the catalogue. A file that cannot be read is a finding.
CheckResult checkSettings(const std::string& path);
