// SPDX-License-Identifier: GPL-3.0-or-later
#include "running_front_end.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <thread>

namespace {

constexpr int endTimeout = 20000; // milliseconds
constexpr double longestSecondsToPicture = 20;

// The background of the list view, and a pixel of it that no text, bar or picture covers on a screen of 1080
// lines.
constexpr std::uint32_t backgroundColour = 0x203040;
constexpr PixelArea margin = {1, 1000, 2, 1001};

} // namespace

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void pauseFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

RunningFrontEnd::RunningFrontEnd(VirtualScreen& screen, const std::string& cabinetFolder,
                                 const char* settings)
    : screen_(screen),
      program_(ChildOptions{{KESTRAVOX_PATH, settings}, cabinetFolder, {screen.environment()}}) {
    while (screen_.capture(margin).countColour({0, 0, 1, 1}, backgroundColour) != 1) {
        if (secondsSince(start_) > longestSecondsToPicture) {
            std::cerr << "no picture\n";
            std::exit(1);
        }
        pauseFor(1);
    }
    secondsToPicture = secondsSince(start_);
}

RunningFrontEnd::~RunningFrontEnd() {
    const auto start = std::chrono::steady_clock::now();
    screen_.tap("Escape", 150);
    program_.waitForExit(endTimeout);
    secondsToEnd = secondsSince(start);
}

double RunningFrontEnd::processorSeconds() const {
    clockid_t clock{};
    timespec used{};
    if (clock_getcpuclockid(program_.id(), &clock) != 0 || clock_gettime(clock, &used) != 0) {
        return 0;
    }
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

double RunningFrontEnd::mebibytes(const std::string& key) const {
    std::ifstream status("/proc/" + std::to_string(program_.id()) + "/status");
    for (std::string word; status >> word;) {
        double kibibytes = 0;
        if (word == key && status >> kibibytes) {
            return kibibytes / 1024;
        }
    }
    return 0;
}
