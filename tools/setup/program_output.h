// SPDX-License-Identifier: GPL-3.0-or-later
// Runs an external program for what it prints. Used to question the emulator. No shell is involved.
#pragma once

#include <optional>
#include <string>

// Starts the command line, waits for its end, but at most `limit` milliseconds, and returns what it has
// written to standard output and standard error. Returns nothing when it could not be started, did not end in
// time (it is killed then), or ended with another exit code than 0.
std::optional<std::string> outputOf(const std::string& commandLine, unsigned limit = 10000);
