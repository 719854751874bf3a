// SPDX-License-Identifier: GPL-3.0-or-later
// Lets each allocation of the drawing of a frame fail once, with pictures in both views and at all rotations,
// and checks that the frame is drawn without what is missing, that the next one is complete, and that the
// front end goes on. Only allocations by malloc and calloc in the program's own sources fail; a failure in a
// library, or of the operator new, is not tried. The front end runs on virtual time. Usage:
// `memory_fault_soak`.
#include "support/front_end.h"
#include "support/png_files.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <vector>

namespace {

constexpr int screenWidth = 640;
constexpr int screenHeight = 480;

int allocationsLeft = 0; // until one fails; 0: none fails

using Frame = std::array<std::uint32_t, std::size_t{screenWidth} * screenHeight>;

// What a child process reports about its run, in memory that both share.
struct Frames {
    Frame faulty; // drawn while an allocation failed
    Frame next;   // the same game again
    bool failed;  // whether an allocation has failed
};

Frames* frames = nullptr;

void copyFrame(Frame& frame) {
    const ScreenPixels pixels = screenPixels();
    for (int y = 0; y < screenHeight; ++y) {
        std::copy_n(pixels.pixels + y * pixels.stride, screenWidth, frame.data() + y * screenWidth);
    }
}

bool failsNow() {
    if (allocationsLeft == 0 || --allocationsLeft > 0) {
        return false;
    }
    frames->failed = true;
    return true;
}

struct Scenario {
    const char* orientation;
    const char* view;
    PngForm form;
};

// One colour a picture: where a picture is missing, the edge of another one below it may be seen.
std::vector<Scenario> scenarios() {
    const PngForm trueColour = {.width = 160, .height = 120, .evenColor = 90};
    const PngForm indexed = {
        .colorType = PNG_COLOR_TYPE_PALETTE, .depth = 2, .width = 160, .height = 120, .evenColor = 1};
    std::vector<Scenario> all;
    for (const char* orientation : {"Normal", "ROR", "Inverted", "ROL"}) {
        for (const char* view : {"ListView", "ImageBrowser"}) {
            all.push_back({orientation, view, trueColour});
            all.push_back({orientation, view, indexed});
        }
    }
    return all;
}

// Shows the first game, once with the failure and once without. The allocation with this number fails; 0 lets
// all succeed. Returns the status of the process.
int runOnce(const Scenario& scenario, bool hasPictures, int failingNumber) {
    frames->failed = false;
    FrontEnd frontEnd;
    frontEnd.writeGames(3);
    frontEnd.set("Settings", "Orientation", scenario.orientation);
    frontEnd.set("Settings", "MenuType", scenario.view);
    for (const char* setting : {"Snapshot.dir", "Marquee.dir", "Cabinet.dir"}) {
        frontEnd.set("Settings", setting, ".");
    }
    for (const char* name : {"g000.png", "g001.png", "g002.png"}) {
        if (hasPictures) {
            frontEnd.folder().write(name, pngBytes(scenario.form));
        }
    }
    const pid_t child = fork();
    if (child == 0) {
        frontEnd.restart();
        frontEnd.tap(150, SDL_SCANCODE_DOWN);
        frontEnd.at(345, [=] { allocationsLeft = failingNumber; });
        frontEnd.tap(350, SDL_SCANCODE_UP);
        frontEnd.at(490, [] {
            allocationsLeft = 0;
            copyFrame(frames->faulty);
        });
        frontEnd.tap(550, SDL_SCANCODE_DOWN);
        frontEnd.tap(750, SDL_SCANCODE_UP);
        frontEnd.at(890, [] { copyFrame(frames->next); });
        _exit(frontEnd.run(950));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

// Returns what is wrong; null for nothing.
const char* faultIn(int status, const Frame& whole, const Frame& without) {
    if (status != 0) {
        return "the front end did not end normally";
    }
    if (frames->next != whole) {
        return "the next frame is not complete";
    }
    for (std::size_t pixel = 0; pixel < whole.size(); ++pixel) {
        if (frames->faulty[pixel] != whole[pixel] && frames->faulty[pixel] != without[pixel]) {
            return "the frame has foreign pixels";
        }
    }
    return nullptr;
}

bool runScenario(const Scenario& scenario) {
    runOnce(scenario, false, 0);
    const Frame without = frames->next;
    runOnce(scenario, true, 0);
    const Frame whole = frames->next;
    int failures = 0;
    int incomplete = 0;
    bool good = whole != without;
    for (int number = 1;; ++number) {
        const int status = runOnce(scenario, true, number);
        if (!frames->failed) {
            break;
        }
        ++failures;
        incomplete += frames->faulty != whole ? 1 : 0;
        if (const char* fault = faultIn(status, whole, without)) {
            std::printf("allocation %d: %s\n", number, fault);
            good = false;
        }
    }
    std::printf("%s, %s, %d bits: %d failures, %d frames without a picture\n", scenario.orientation,
                scenario.view, scenario.form.depth, failures, incomplete);
    return good && incomplete > 0;
}

} // namespace

// The linker replaces the calls in the program's sources.
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);

void* __wrap_malloc(std::size_t size) {
    return failsNow() ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return failsNow() ? nullptr : __real_calloc(count, size);
}
}

int main() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    frames =
        new (mmap(nullptr, sizeof(Frames), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Frames;
    bool good = true;
    for (const Scenario& scenario : scenarios()) {
        good = runScenario(scenario) && good;
    }
    return good ? 0 : 1;
}
