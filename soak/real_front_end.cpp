// SPDX-License-Identifier: GPL-3.0-or-later
#include "real_front_end.h"

#include "art/art_pack.h"
#include "games.h"
#include "movies.h"
#include "sounds.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string_view>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int screenWidth = 1280;
constexpr int screenHeight = 1024;
constexpr int startTimeout = 30000;           // milliseconds
constexpr int endTimeout = 30000;             // milliseconds
constexpr std::uint32_t barColour = 0x341A48; // of the status bar in the cabinet's settings
constexpr int edge = 16; // pixels at the edge of the screen that the status bar covers at any rotation

// Background pixels of the largest status bar found so far.
struct Bar {
    int pixels = 0;
    std::size_t hash = 0;
};

[[noreturn]] void giveUp(const std::string& problem) {
    std::fprintf(stderr, "%s\n", problem.c_str());
    std::exit(2);
}

// A text for each game, so that the information key always opens the window, and pressed again closes it.
std::string infoForAllGames() {
    constexpr int lines = 60;
    std::string text;
    for (const DemoGame& game : demoGames()) {
        text += "$info=" + std::string(game.name) + ",\n$mame\n";
        for (int line = 1; line <= lines; ++line) {
            text += "Line " + std::to_string(line) + "\n";
        }
        text += "$end\n";
    }
    return text;
}

int millisecondsSince(Clock::time_point start) {
    return static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

} // namespace

void pauseFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

RealFrontEnd::RealFrontEnd(const std::string& emulator, const std::vector<SettingChange>& changes) {
    std::string problem;
    std::filesystem::create_directory("sounds");
    std::filesystem::create_directory("attracts");
    if (!layOutCabinet(".", problem) || !layOutSounds("sounds", problem) ||
        !layOutMovies("attracts", problem) || !writeArtPack(".", problem)) {
        giveUp(problem);
    }
    const std::string script =
        folder_.write("emulator", "#!/bin/sh\nprintf . >>launches\n" + emulator + "\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    std::vector<SettingChange> all = changes;
    all.push_back({"Mame.exe", script});
    folder_.write("kestravox.ini", cabinetSettings(all));
    folder_.write("mameinfo.dat", infoForAllGames());
    const std::string list =
        std::string("'") + DEMO_MAME_PATH + "' -listxml | '" + XML2INFO_PATH + "' >listinfo.dat";
    ChildProgram converter({.words = {"/bin/sh", "-c", list}});
    screen_ = VirtualScreen::start(screenWidth, screenHeight, problem);
    if (converter.waitForExit(startTimeout) != 0 || !screen_) {
        giveUp("the game list cannot be made or there is no screen: " + problem);
    }
    startSoundServer();
    ChildOptions options;
    options.words = {KESTRAVOX_PATH};
    options.environment = {screen_->environment(),
                           "SDL_VIDEODRIVER=x11",
                           "XDG_RUNTIME_DIR=" + folder_.pathOf(""),
                           "HOME=" + folder_.pathOf(""),
                           "PULSE_SERVER=unix:" + folder_.pathOf("socket"),
                           "ASAN_OPTIONS=quarantine_size_mb=8",
                           std::string("LSAN_OPTIONS=suppressions=") + LEAKS_PATH};
    options.outputPath = "output.txt";
    program_ = std::make_unique<ChildProgram>(options);
    const auto start = Clock::now();
    while (statusBar() == 0 && millisecondsSince(start) < startTimeout) {
        pauseFor(50);
    }
    if (!screen_->waitForFocus("KESTRAVOX", startTimeout)) {
        giveUp("the front end did not start: " + output());
    }
    pauseFor(2000);
}

void RealFrontEnd::startSoundServer() {
    setenv("XDG_RUNTIME_DIR", folder_.pathOf("").c_str(), 1);
    setenv("HOME", folder_.pathOf("").c_str(), 1);
    soundServer_ = std::make_unique<ChildProgram>(ChildOptions{
        .words = {"pulseaudio", "-n", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
                  "module-native-protocol-unix auth-anonymous=1 socket=" + folder_.pathOf("socket"), "-L",
                  "module-null-sink sink_name=out format=s16le channels=2 rate=48000"},
        .outputPath = "server.txt"});
    const auto start = Clock::now();
    while (!folder_.has("socket")) {
        if (millisecondsSince(start) > startTimeout) {
            giveUp("the sound server (pulseaudio) did not start");
        }
        pauseFor(20);
    }
}

// A value of the status bar's content and place; 0 when there is none. Movies never cover the bar.
std::size_t RealFrontEnd::statusBar() {
    Bar bar;
    for (const PixelArea& side :
         {PixelArea{0, screenHeight - edge, screenWidth, screenHeight}, PixelArea{0, 0, screenWidth, edge},
          PixelArea{0, 0, edge, screenHeight}, PixelArea{screenWidth - edge, 0, screenWidth, screenHeight}}) {
        const Screenshot shot = screen_->capture(side);
        const int pixels = shot.countColour(shot.whole(), barColour);
        if (pixels > std::max(bar.pixels, screenHeight * edge / 2)) {
            const std::string_view bytes(
                static_cast<const char*>(static_cast<const void*>(shot.pixels.data())),
                shot.pixels.size() * sizeof(std::uint32_t));
            bar = {pixels,
                   std::hash<std::string_view>()(bytes) + static_cast<std::size_t>(side.left + side.top)};
        }
    }
    return bar.hash;
}

std::optional<int> RealFrontEnd::reaction(const char* key, int limitMilliseconds) {
    const std::size_t before = statusBar();
    const auto start = Clock::now();
    screen_->tap(key);
    while (statusBar() == before) {
        if (millisecondsSince(start) > limitMilliseconds) {
            return std::nullopt;
        }
        pauseFor(10);
    }
    return millisecondsSince(start);
}

void RealFrontEnd::printStacks() const {
    std::fflush(stdout);
    ChildProgram debugger(
        {.words = {"gdb", "-q", "-p", std::to_string(program_->id()), "-batch", "-ex", "bt 25"}});
    debugger.waitForExit(endTimeout);
}

std::optional<int> RealFrontEnd::exit() {
    screen_->tap("Escape");
    return program_->waitForExit(endTimeout);
}
