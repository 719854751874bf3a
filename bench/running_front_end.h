// SPDX-License-Identifier: GPL-3.0-or-later
// A front end that runs on a virtual screen, and what the machine says about its process. Used by
// front_end_bench.
#pragma once

#include "child_program.h"
#include "virtual_screen.h"

#include <chrono>
#include <string>

double secondsSince(std::chrono::steady_clock::time_point start);
void pauseFor(int milliseconds);

// Its settings must have the background colour 0x403020, by which the first picture is recognised, and the
// screen 1080 lines.
class RunningFrontEnd {
public:
    // Returns when the first picture is on the screen; ends this process when none comes.
    RunningFrontEnd(VirtualScreen& screen, const std::string& cabinetFolder, const char* settings);
    // Presses Escape and waits for the end.
    ~RunningFrontEnd();
    RunningFrontEnd(const RunningFrontEnd&) = delete;
    RunningFrontEnd& operator=(const RunningFrontEnd&) = delete;

    // Processor time of all threads so far, in seconds.
    double processorSeconds() const;

    // Returns a value from /proc/PID/status, such as "VmRSS:", in MiB.
    double mebibytes(const std::string& key) const;

    double secondsToPicture = 0;
    static inline double secondsToEnd = 0;

private:
    VirtualScreen& screen_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    ChildProgram program_;
};
