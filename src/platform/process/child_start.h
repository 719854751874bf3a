// SPDX-License-Identifier: GPL-3.0-or-later
// Starts a program as a child that is killed when this process ends, for whatever reason, or as one that
// outlives it. Called by CreateProcessA, which finds the programs and owns the streams. No shell is involved.
#pragma once

#include <array>
#include <string>
#include <sys/types.h>
#include <vector>

struct ChildStart {
    // Full paths, tried in turn, since a file with the right name may be for another machine type.
    std::vector<std::string> programs;
    std::vector<std::string> words;
    std::string folder; // working directory; empty for the current one
    // Descriptors for standard input, output and error: inheritedStream for this process's own, noStream for
    // /dev/null.
    std::array<int, 3> streams{};
    bool detached = false; // outlives this process, in a session of its own
};

constexpr int inheritedStream = -1;
constexpr int noStream = -2;

// The child leads its own process group, in this process's session unless detached. It has no other
// descriptors, the default action for all signals and an empty signal mask. Exceptions are SIGTTIN and
// SIGTTOU, which it ignores because it may not be in the terminal's foreground. Returns 0 when none of the
// programs starts.
pid_t startChild(const ChildStart& start);
