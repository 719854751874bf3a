// SPDX-License-Identifier: GPL-3.0-or-later
// What a process holds, as the kernel reports it. Used by the soak programs for the front end, in the same
// process or in another one.
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

struct ProcessUsage {
    std::ptrdiff_t threads = 0;
    std::ptrdiff_t files = 0;
    int children = 0; // running
    int zombies = 0;  // children that have ended and were not waited for
    long residentKiB = 0;
};

// All zero when there is no such process.
ProcessUsage usageOf(pid_t process);

// The larger value of each field.
ProcessUsage peakOf(const ProcessUsage& first, const ProcessUsage& second);

// Prints one line that starts with `when`.
void printUsage(const std::string& when, const ProcessUsage& usage);

// Whether more is held than before. Resident memory counts only beyond `allowedKiB`.
bool hasGrown(const ProcessUsage& earlier, const ProcessUsage& later, long allowedKiB);
