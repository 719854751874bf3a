// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the whole program on a virtual screen with real key events. With 45,294 games: time to the first
// picture, memory, processor use when idle, processor time of a selection step and a sort command, and the
// time from a key press to its picture, with and without InstantResponse. With large art: pictures per second
// while a key is held, and processor use when idle in the list, the menu and the information window. With
// pictures of 100 and of all games: start, memory and a selection step. Usage: `front_end_bench [LIST]`.
// Without LIST, generates a list.
//
// From the top: the measurements, the cabinets they run in, the table of benchmarks.
#include "generated_movie.h"
#include "large_cabinet.h"
#include "photograph.h"
#include "running_front_end.h"
#include "support/temporary_folder.h"
#include "virtual_screen.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int screenWidth = 1440;
constexpr int screenHeight = 1080;

// Number of games that share one flyer, which is as large as the largest real ones.
constexpr int artGames = 400;
constexpr unsigned flyerWidth = 2000;
constexpr unsigned flyerHeight = 3000;
// Part of the screen in which the highlight bar moves.
constexpr PixelArea barColumn = {0, screenHeight / 2, 4, screenHeight};

std::unique_ptr<VirtualScreen> screen;
// Settings files in each folder; the second one with all extras switched on.
constexpr const char* plainSettings = "kestravox.ini";
constexpr const char* extraSettings = "extras.ini";

std::string largeFolder;
std::string artFolder;
// The large list, with pictures of that many of its games.
constexpr std::array<int, 2> pictureCounts = {100, 45294};
std::string picturesFolder;

std::string picturesOf(int count) {
    return picturesFolder + "/" + std::to_string(count);
}

void measureStart(benchmark::State& state, const std::string& cabinetFolder, const char* settings) {
    double processor = 0;
    for ([[maybe_unused]] auto step : state) {
        const RunningFrontEnd frontEnd(*screen, cabinetFolder, settings);
        state.SetIterationTime(frontEnd.secondsToPicture);
        processor += frontEnd.processorSeconds();
        pauseFor(500);
        state.counters["resident MiB"] = frontEnd.mebibytes("VmRSS:");
        state.counters["peak MiB"] = frontEnd.mebibytes("VmHWM:");
    }
    state.counters["exit ms"] = RunningFrontEnd::secondsToEnd * 1000;
    state.counters["processor ms"] = benchmark::Counter(processor * 1000, benchmark::Counter::kAvgIterations);
}

// Processor use when idle, with the window that the key opens if there is one.
void measureIdle(benchmark::State& state, const std::string& cabinetFolder, const char* key,
                 const char* settings) {
    const RunningFrontEnd frontEnd(*screen, cabinetFolder, settings);
    pauseFor(500);
    if (key) {
        screen->tap(key);
        pauseFor(1000);
    }
    for ([[maybe_unused]] auto step : state) {
        const double before = frontEnd.processorSeconds();
        pauseFor(20000);
        const double used = frontEnd.processorSeconds() - before;
        state.SetIterationTime(used);
        state.counters["percent of a core"] = used / 20 * 100;
    }
    if (key) {
        screen->tap("Escape", 150);
        pauseFor(1000);
    }
}

double secondsOfDecoding() {
    const auto start = std::chrono::steady_clock::now();
    decodeBare(artFolder + "/flyers/g0.png");
    return secondsSince(start);
}

// Pictures per second while a key is held, compared to decoding the same art just before and after.
void measureHeldKey(benchmark::State& state) {
    const RunningFrontEnd frontEnd(*screen, artFolder, plainSettings);
    pauseFor(1000);
    constexpr double heldSeconds = 5;
    int pictures = 0;
    double decoding = 0;
    double longestGap = 0;
    double latest = 0; // seconds after the release
    for ([[maybe_unused]] auto step : state) {
        decoding += secondsOfDecoding() / 2;
        Screenshot shown = screen->capture(barColumn);
        screen->press("Down");
        const auto start = std::chrono::steady_clock::now();
        double lastPicture = 0;
        bool held = true;
        for (double now = 0; now < heldSeconds + 1; now = secondsSince(start)) {
            if (held && now >= heldSeconds) {
                screen->release("Down");
                held = false;
            }
            Screenshot next = screen->capture(barColumn);
            if (next != shown) {
                shown = std::move(next);
                const double picture = secondsSince(start);
                longestGap = std::max(longestGap, lastPicture > 0 ? picture - lastPicture : 0);
                lastPicture = picture;
                pictures += held ? 1 : 0;
            }
            pauseFor(2);
        }
        longestGap = std::max(longestGap, heldSeconds - lastPicture);
        latest = std::max(latest, lastPicture - heldSeconds);
        decoding += secondsOfDecoding() / 2;
        state.SetIterationTime(heldSeconds);
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["pictures/s"] = pictures / heldSeconds / count;
    state.counters["decodings/s"] = count / decoding;
    state.counters["ratio"] = pictures / heldSeconds / count * (decoding / count);
    state.counters["longest gap ms"] = longestGap * 1000;
    state.counters["after release ms"] = latest * 1000;
}

// Time from a key press to the first change of the picture, at all distances from the ticks.
void measureResponse(benchmark::State& state, const char* settings) {
    const RunningFrontEnd frontEnd(*screen, largeFolder, settings);
    pauseFor(500);
    std::vector<double> times;
    for ([[maybe_unused]] auto step : state) {
        constexpr int shortestPause = 300;
        constexpr int pauseRange = 100;
        constexpr int stride = 37; // visits every remainder once
        pauseFor(shortestPause + static_cast<int>(times.size()) * stride % pauseRange);
        const Screenshot before = screen->capture(barColumn);
        const auto start = std::chrono::steady_clock::now();
        screen->press("Down");
        while (screen->capture(barColumn) == before && secondsSince(start) < 1) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        times.push_back(secondsSince(start));
        screen->release("Down");
        state.SetIterationTime(times.back());
    }
    std::ranges::sort(times);
    state.counters["median ms"] = times[times.size() / 2] * 1000;
    state.counters["95% ms"] = times[times.size() * 95 / 100] * 1000;
}

// Processor time of one action in addition to that of the idle program over the same time.
void measureAction(benchmark::State& state, const std::string& cabinetFolder, const char* key,
                   int milliseconds) {
    const RunningFrontEnd frontEnd(*screen, cabinetFolder, plainSettings);
    pauseFor(500);
    const double beforeIdle = frontEnd.processorSeconds();
    pauseFor(2000);
    const double idlePerMillisecond = (frontEnd.processorSeconds() - beforeIdle) / 2000;
    for ([[maybe_unused]] auto step : state) {
        const auto start = std::chrono::steady_clock::now();
        const double before = frontEnd.processorSeconds();
        screen->tap(key, 20);
        pauseFor(milliseconds);
        const double idle = idlePerMillisecond * secondsSince(start) * 1000;
        state.SetIterationTime(std::max(frontEnd.processorSeconds() - before - idle, 1e-9));
    }
}

void writeSettings(const std::string& folder) {
    for (const std::string name : {plainSettings, extraSettings}) {
        std::ofstream ini(folder + "/" + name);
        ini << "[Settings]\nRoms.dir=roms\nFlyer.dir=flyers\nPreviewPictures=Flyers\nFontsize=18\n"
               "Backgroundcolor=0x403020\nFontcolor=0xFFFFFF\nHighlightBackcolor=0x8000FF\n"
               "[RomOptions]\nDisplayMissingRoms=1\n";
        if (name == extraSettings) {
            ini << "[Extras]\nLayout=Turned\nRepeatDelay=250\nInstantResponse=1\nJoystickHotplug=1\n"
                   "NextLetterKey=78\nPreviousLetterKey=66\nFavouriteKey=77\nFavouritesOnlyKey=79\n"
                   "SaveOnChange=5\nRefreshList=1\nIdleSeconds=3600\nExitCommand=true\nHistory.xml=history."
                   "xml\n";
            std::ofstream(folder + "/history.xml") << "<history></history>\n";
        }
    }
}

void writeLargeCabinet(const std::string& list) {
    std::filesystem::create_directory(largeFolder);
    if (list.empty()) {
        writeLargeList(largeFolder + "/listinfo.dat");
    } else {
        std::filesystem::copy_file(list, largeFolder + "/listinfo.dat");
    }
    writeZips(largeFolder + "/listinfo.dat", largeFolder + "/roms");
    writeSettings(largeFolder);
}

void writeArtCabinet() {
    std::filesystem::create_directories(artFolder + "/flyers");
    const std::string flyer = artFolder + "/flyers/g0.png";
    writePhotograph(flyer, flyerWidth, flyerHeight, 7);
    std::ofstream list(artFolder + "/listinfo.dat");
    std::ofstream information(artFolder + "/mameinfo.dat");
    for (int game = 0; game < artGames; ++game) {
        const std::string name = "g" + std::to_string(game);
        list << "game (\n\tname " << name << "\n\tdescription \"" << name << "\"\n)\n";
        information << "$info=" << name << "\n$mame\nA line about " << name << "\n\n$end\n";
        if (game > 0) {
            std::filesystem::create_hard_link(flyer, artFolder + "/flyers/" + name + ".png");
        }
    }
    writeSettings(artFolder);
}

// The list in title order, with marquees and screen shots of its first `count` games and movies of its first
// 2,000.
void writePicturesCabinet(int count) {
    const std::string folder = picturesOf(count);
    std::filesystem::create_directories(folder);
    std::filesystem::create_hard_link(largeFolder + "/listinfo.dat", folder + "/listinfo.dat");
    std::filesystem::create_directory_symlink(largeFolder + "/roms", folder + "/roms");
    const std::vector<std::string> names = gamesByTitle(folder + "/listinfo.dat");
    const auto link = [&](const std::string& file, const std::string& kind, int links) {
        std::filesystem::create_directory(folder + "/" + kind);
        const std::string end = std::filesystem::path(file).extension();
        for (std::size_t game = 0; game < std::min(names.size(), static_cast<std::size_t>(links)); ++game) {
            std::filesystem::create_hard_link(file, folder + "/" + kind + "/" + names[game] + end);
        }
    };
    link(picturesFolder + "/marquee.png", "marquees", count);
    link(picturesFolder + "/shot.png", "snap", count);
    link(picturesFolder + "/movie.avi", "movies", std::min(count, 2000));
    std::ofstream(folder + "/" + plainSettings)
        << "[Settings]\nRoms.dir=roms\nMarquee.dir=marquees\nSnapshot.dir=snap\nAttract.dir=movies\n"
           "PreviewPictures=ScreenShots\nFontsize=18\nBackgroundcolor=0x403020\nFontcolor=0xFFFFFF\n"
           "[RomOptions]\nDisplayMissingRoms=1\n";
}

void writePicturesCabinets() {
    std::filesystem::create_directories(picturesFolder);
    writePhotograph(picturesFolder + "/marquee.png", 800, 250, 3);
    writePhotograph(picturesFolder + "/shot.png", 640, 480, 5);
    std::ofstream(picturesFolder + "/movie.avi", std::ios::binary) << generatedMovie(320, 240, 20, 2);
    for (const int count : pictureCounts) {
        writePicturesCabinet(count);
    }
}

// What may depend on the number of files in the folders of pictures and movies.
void registerPictureCounts() {
    for (const int count : pictureCounts) {
        const std::string name = "/pictures/" + std::to_string(count);
        const std::string folder = picturesOf(count);
        benchmark::RegisterBenchmark(("start" + name).c_str(), measureStart, folder, plainSettings)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(9);
        benchmark::RegisterBenchmark(("selectionStep" + name).c_str(), measureAction, folder, "Down", 480)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(30);
    }
}

void registerBenchmarks() {
    constexpr auto unit = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("start", measureStart, largeFolder, plainSettings)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(9);
    benchmark::RegisterBenchmark("start/extras", measureStart, largeFolder, extraSettings)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(9);
    const struct {
        const char* name;
        const std::string& folder;
        const char* key;
        const char* settings = plainSettings;
    } idleStates[] = {{"idle", largeFolder, nullptr},
                      {"idle/art", artFolder, nullptr},
                      {"idle/menu", artFolder, "2"},
                      {"idle/information", artFolder, "Control_L"},
                      {"idle/extras", largeFolder, nullptr, extraSettings},
                      {"idle/menu/extras", artFolder, "2", extraSettings},
                      {"idle/information/extras", artFolder, "Control_L", extraSettings}};
    for (const auto& idleState : idleStates) {
        benchmark::RegisterBenchmark(idleState.name, measureIdle, idleState.folder, idleState.key,
                                     idleState.settings)
            ->UseManualTime()
            ->Unit(unit)
            ->Iterations(1);
    }
    benchmark::RegisterBenchmark("heldKey", measureHeldKey)->UseManualTime()->Unit(unit)->Iterations(3);
    benchmark::RegisterBenchmark("selectionStep", measureAction, largeFolder, "Down", 180)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(30);
    benchmark::RegisterBenchmark("response", measureResponse, plainSettings)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(100);
    benchmark::RegisterBenchmark("response/extras", measureResponse, extraSettings)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(100);
    benchmark::RegisterBenchmark("sortCycle", measureAction, largeFolder, "z", 480)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(12);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const std::string list = argc > 1 ? std::filesystem::absolute(argv[1]).string() : "";
    const TemporaryFolder folder;
    largeFolder = folder.pathOf("large");
    artFolder = folder.pathOf("art");
    writeLargeCabinet(list);
    writeArtCabinet();
    picturesFolder = folder.pathOf("pictures");
    writePicturesCabinets();
    std::string problem;
    screen = VirtualScreen::start(screenWidth, screenHeight, problem);
    if (!screen) {
        std::cerr << problem << "\n";
        return 1;
    }
    registerBenchmarks();
    registerPictureCounts();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
