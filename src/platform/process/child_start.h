// Starts a program as a child that ends with this process, however this process ends. Inside the platform
// only: called for CreateProcessA, which finds the programs and owns the streams. No shell is involved.
#pragma once

#include <array>
#include <string>
#include <sys/types.h>
#include <vector>

struct ChildStart {
    // Full paths. They are tried in turn, since what has the right name can be for another machine.
    std::vector<std::string> programs;
    std::vector<std::string> words;
    std::string folder; // working directory; empty for the present one
    // Descriptors for standard input, output and error: inheritedStream for this process's own, noStream for
    // none.
    std::array<int, 3> streams{};
};

constexpr int inheritedStream = -1;
constexpr int noStream = -2;

// The child leads a process group of its own, has no other descriptor, the default action for all signals but
// those of terminal access (which it ignores: it may not be in the terminal's foreground), and an empty
// signal mask. 0 when none of the programs starts.
pid_t startChild(const ChildStart& start);
