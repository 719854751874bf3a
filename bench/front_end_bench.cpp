// What the whole program costs with 45,294 games: the time to the first picture, memory, the processor at
// rest, and the work of a selection step and of a sort command. It runs the real program on a virtual screen
// with real keys. Run it as `front_end_bench [LIST]`; without a list it makes one up.
#include "child_program.h"
#include "large_cabinet.h"
#include "support/temporary_folder.h"
#include "virtual_screen.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

namespace {

constexpr int screenWidth = 1440;
constexpr int screenHeight = 1080;
constexpr int startLimit = 20000;

// The background of the list view, which no message box reaches at the point looked at.
constexpr std::uint32_t backgroundColour = 0x203040;
constexpr PixelArea corner = {4, 4, 5, 5};

std::unique_ptr<VirtualScreen> screen;
std::string cabinetFolder;

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void pauseFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// The front end, started and with its first picture on the screen.
class RunningFrontEnd {
public:
    RunningFrontEnd() {
        const auto start = std::chrono::steady_clock::now();
        program = std::make_unique<ChildProgram>(
            ChildOptions{{KESTRAVOX_PATH}, cabinetFolder, {screen->environment()}});
        const bool shown = screen->waitFor(
            [](const Screenshot& shot) { return shot.countColour(corner, backgroundColour) == 1; },
            startLimit);
        secondsToPicture = secondsSince(start);
        if (!shown) {
            std::cerr << "no picture\n";
            std::exit(1);
        }
    }
    ~RunningFrontEnd() {
        const auto start = std::chrono::steady_clock::now();
        screen->tap("Escape", 150);
        program->waitForExit(startLimit);
        secondsToEnd = secondsSince(start);
    }
    RunningFrontEnd(const RunningFrontEnd&) = delete;
    RunningFrontEnd& operator=(const RunningFrontEnd&) = delete;

    // Seconds of processor time so far.
    double processorSeconds() const {
        double nanoseconds = 0;
        std::ifstream("/proc/" + std::to_string(program->id()) + "/schedstat") >> nanoseconds;
        return nanoseconds * 1e-9;
    }

    double mebibytes(const std::string& key) const {
        std::ifstream status("/proc/" + std::to_string(program->id()) + "/status");
        for (std::string word; status >> word;) {
            double kibibytes = 0;
            if (word == key && status >> kibibytes) {
                return kibibytes / 1024;
            }
        }
        return 0;
    }

    double secondsToPicture = 0;
    static inline double secondsToEnd = 0;

private:
    std::unique_ptr<ChildProgram> program;
};

void measureStart(benchmark::State& state) {
    double processor = 0;
    for ([[maybe_unused]] auto step : state) {
        const RunningFrontEnd frontEnd;
        state.SetIterationTime(frontEnd.secondsToPicture);
        processor += frontEnd.processorSeconds();
        pauseFor(500);
        state.counters["resident MiB"] = frontEnd.mebibytes("VmRSS:");
        state.counters["peak MiB"] = frontEnd.mebibytes("VmHWM:");
    }
    state.counters["exit ms"] = RunningFrontEnd::secondsToEnd * 1000;
    state.counters["processor ms"] = benchmark::Counter(processor * 1000, benchmark::Counter::kAvgIterations);
}

void measureRest(benchmark::State& state) {
    const RunningFrontEnd frontEnd;
    pauseFor(500);
    for ([[maybe_unused]] auto step : state) {
        const double before = frontEnd.processorSeconds();
        pauseFor(5000);
        const double used = frontEnd.processorSeconds() - before;
        state.SetIterationTime(used);
        state.counters["percent of a core"] = used / 5 * 100;
    }
}

// Processor time of one action beyond that of the program at rest for the same time.
void measureAction(benchmark::State& state, const char* key, int milliseconds) {
    const RunningFrontEnd frontEnd;
    pauseFor(500);
    const double beforeRest = frontEnd.processorSeconds();
    pauseFor(2000);
    const double restPerMillisecond = (frontEnd.processorSeconds() - beforeRest) / 2000;
    for ([[maybe_unused]] auto step : state) {
        const auto start = std::chrono::steady_clock::now();
        const double before = frontEnd.processorSeconds();
        screen->tap(key, 20);
        pauseFor(milliseconds);
        const double rest = restPerMillisecond * secondsSince(start) * 1000;
        state.SetIterationTime(std::max(frontEnd.processorSeconds() - before - rest, 1e-9));
    }
}

void writeSettings() {
    std::ofstream(cabinetFolder + "/kestravox.ini")
        << "[Settings]\nRoms.dir=roms\nBackgroundcolor=0x403020\nFontcolor=0xFFFFFF\nFontsize=18\n"
           "[RomOptions]\nDisplayMissingRoms=1\n";
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const std::string list = argc > 1 ? std::filesystem::absolute(argv[1]).string() : "";
    const TemporaryFolder folder;
    cabinetFolder = folder.pathOf("");
    if (list.empty()) {
        writeLargeList("listinfo.dat");
    } else {
        std::filesystem::copy_file(list, "listinfo.dat");
    }
    writeZips("listinfo.dat", "roms");
    writeSettings();
    std::string problem;
    screen = VirtualScreen::start(screenWidth, screenHeight, problem);
    if (!screen) {
        std::cerr << problem << "\n";
        return 1;
    }
    constexpr auto unit = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("start", measureStart)->UseManualTime()->Unit(unit)->Iterations(9);
    benchmark::RegisterBenchmark("rest", measureRest)->UseManualTime()->Unit(unit)->Iterations(1);
    benchmark::RegisterBenchmark("selectionStep", measureAction, "Down", 180)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(30);
    benchmark::RegisterBenchmark("sortCycle", measureAction, "z", 480)
        ->UseManualTime()
        ->Unit(unit)
        ->Iterations(12);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
