// SPDX-License-Identifier: GPL-3.0-or-later
// Runs attract play on virtual time and checks the number of games picked and that nothing grows. Usage:
// `attract_soak [HOURS]`, 168 by default: a week takes some minutes.
#include "support/front_end.h"
#include "support/png_files.h"

#include <malloc.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int idleSeconds = 60;
constexpr int stepSeconds = 15;
constexpr std::int64_t hour = 3600 * 1000; // milliseconds
constexpr std::size_t allowedGrowth = std::size_t{64} << 10;

// Numbers drawn by rand: each pick draws one.
long picks = 0;

struct Usage {
    std::size_t heapBytes = 0;
    std::size_t drawingObjects = 0;
    std::ptrdiff_t files = 0;
};

Usage currentUsage() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return {mallinfo2().uordblks, drawingObjectCount(), std::distance(begin(files), end(files))};
}

void print(const char* when, const Usage& usage) {
    std::printf("%-12s %zu bytes allocated, %zu drawing objects, %td files\n", when, usage.heapBytes,
                usage.drawingObjects, usage.files);
}

} // namespace

// Replaces the C library's generator.
extern "C" int rand() noexcept {
    static std::uint32_t state = 1;
    state = state * 1103515245 + 12345;
    ++picks;
    return static_cast<int>(state >> 16 & 0x7FFF);
}

int main(int argc, char** argv) {
    const std::int64_t hours = argc > 1 ? std::atoll(argv[1]) : 7 * 24;
    if (hours < 2) {
        std::fputs("usage: attract_soak [HOURS], at least 2\n", stderr);
        return 2;
    }
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    FrontEnd frontEnd;
    frontEnd.writeGames(200);
    frontEnd.set("Settings", "Snapshot.dir", ".");
    for (int game = 1000; game < 1200; game += 2) {
        frontEnd.folder().write("g" + std::to_string(game).substr(1) + ".png", pngBytes({}));
    }
    frontEnd.set("Extras", "IdleSeconds", std::to_string(idleSeconds));
    frontEnd.set("Extras", "IdleStep", std::to_string(stepSeconds));
    frontEnd.set("Extras", "SaveOnChange", "5");
    frontEnd.set("Extras", "FavouriteKey", "77");
    Usage early;
    Usage late;
    frontEnd.at(hour, [&] { early = currentUsage(); });
    const std::int64_t last = hours * hour;
    frontEnd.at(last - 1, [&] { late = currentUsage(); });
    frontEnd.tap(last + 500, SDL_SCANCODE_ESCAPE); // only stops attract play
    const int exitCode = frontEnd.run(last + 2500);
    const long expected = static_cast<long>((last / 1000 - idleSeconds) / stepSeconds) + 1;
    print("first hour", early);
    print("last hour", late);
    std::printf("%ld of %ld games picked\n", picks, expected);
    const bool hasGrown = late.heapBytes > early.heapBytes + allowedGrowth ||
                          late.drawingObjects > early.drawingObjects || late.files > early.files;
    return exitCode == 0 && picks == expected && !hasGrown ? 0 : 1;
}
