// SPDX-License-Identifier: GPL-3.0-or-later
// Starts games in one run of the front end and checks that each one runs once and that nothing grows after
// the tenth. Usage: `launch_soak [LAUNCHES]` on virtual time, 10,000 by default; `launch_soak real
// [LAUNCHES]` with the real program, movies and sound on a virtual screen, 500 by default, about three
// seconds each.
#include "process_usage.h"
#include "real_front_end.h"
#include "support/front_end.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

namespace {

constexpr long baseline = 10; // launches

// Prints the peak of the first ten launches and the usage after 20, 40, 80, ... launches and the last, and
// compares them: a paused movie and the ambience hold more threads and files than an idle player.
class GrowthCheck {
public:
    GrowthCheck(long total, long allowedKiB) : total_(total), allowedKiB_(allowedKiB) {}

    void afterLaunch(long launches, const ProcessUsage& usage) {
        if (launches <= baseline) {
            first_ = peakOf(first_, usage);
        }
        if (launches != next_ && launches != total_) {
            return;
        }
        next_ = launches * 2;
        printUsage(std::to_string(launches) + " launches", launches == baseline ? first_ : usage);
        grown_ = grown_ || hasGrown(first_, usage, allowedKiB_);
    }

    bool found() const { return grown_; }

private:
    long total_;
    long allowedKiB_;
    long next_ = baseline;
    ProcessUsage first_;
    bool grown_ = false;
};

int runOnVirtualTime(long launches) {
    constexpr std::int64_t period = 5000; // milliseconds from one launch to the next
    constexpr long allowedKiB = 1024;
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    FrontEnd frontEnd;
    frontEnd.writeGames(20);
    for (int game = 1000; game < 1020; ++game) {
        frontEnd.addRom("g" + std::to_string(game).substr(1));
    }
    const std::string emulator = frontEnd.folder().write("emulator", "#!/bin/sh\nprintf . >>started\n");
    std::filesystem::permissions(emulator, std::filesystem::perms::owner_all);
    frontEnd.set("Settings", "Mame.exe", emulator);
    GrowthCheck check(launches, allowedKiB);
    for (long launch = 1; launch <= launches; ++launch) {
        const std::int64_t time = launch * period;
        frontEnd.tap(time, launch / 10 % 2 == 0 ? SDL_SCANCODE_DOWN : SDL_SCANCODE_UP);
        frontEnd.tap(time + 500, SDL_SCANCODE_1);
        frontEnd.at(time + period - 1, [&check, launch] { check.afterLaunch(launch, usageOf(getpid())); });
    }
    const int exitCode = frontEnd.run((launches + 1) * period);
    const auto started = static_cast<long>(frontEnd.folder().read("started").size());
    std::printf("%ld of %ld games started\n", started, launches);
    return exitCode == 0 && started == launches && !check.found() ? 0 : 1;
}

// Moves to another game: up and down in turn, and the other way at an end of the list. The sequence is longer
// than the baseline, since what each further movie leaves behind is what grows.
bool moveToNext(RealFrontEnd& frontEnd, long launch) {
    const bool downwards = launch % 40 < 20;
    return frontEnd.reaction(downwards ? "Down" : "Up", 2000) ||
           frontEnd.reaction(downwards ? "Up" : "Down", 2000);
}

// Moves to another game and starts it. Returns false when one of the two does not happen.
bool launchNext(RealFrontEnd& frontEnd, long launch) {
    constexpr int reactionLimit = 10000;        // milliseconds
    constexpr int delaysOfLaunch = 1000 + 1000; // before and after the wait for the emulator, milliseconds
    const std::size_t before = frontEnd.launches();
    if (!moveToNext(frontEnd, launch)) {
        return false;
    }
    pauseFor(300); // the movie starts
    frontEnd.screen().tap("1");
    for (int waited = 0; frontEnd.launches() == before; waited += 20) {
        if (waited > reactionLimit) {
            return false;
        }
        pauseFor(20);
    }
    pauseFor(delaysOfLaunch + 300);
    return true;
}

int runInRealTime(long launches) {
    constexpr long allowedKiB = 3 << 10;
    RealFrontEnd frontEnd("exit 0", {});
    GrowthCheck check(launches, allowedKiB);
    printUsage("start", frontEnd.usage());
    for (long launch = 1; launch <= launches; ++launch) {
        if (!launchNext(frontEnd, launch)) {
            std::printf("launch %ld: no reaction\n", launch);
            frontEnd.printStacks();
            return 1;
        }
        check.afterLaunch(launch, frontEnd.usage());
    }
    const std::optional<int> exitCode = frontEnd.exit();
    return exitCode == 0 && !check.found() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const bool isReal = argc > 1 && std::strcmp(argv[1], "real") == 0;
    const int countAt = isReal ? 2 : 1;
    const long launches = argc > countAt ? std::atol(argv[countAt]) : isReal ? 500 : 10000;
    if (launches <= baseline) {
        std::fputs("usage: launch_soak [real] [LAUNCHES], more than 10\n", stderr);
        return 2;
    }
    return isReal ? runInRealTime(launches) : runOnVirtualTime(launches);
}
