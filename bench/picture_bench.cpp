// SPDX-License-Identifier: GPL-3.0-or-later
// Measures redraws and rebuilt pages of tiles against decoding the same files with libpng alone, and memory
// over 10,000 redraws. Generates art in the sizes of real packs. Decoding and drawing alternate, so that
// other load on the machine slows both.
#include "app/window_state.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "extras/turned_layout.h"
#include "photograph.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "render/composition.h"
#include "render/page.h"
#include "render/status_bar.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

namespace {

constexpr int gameCount = 40;

// Processor time, which depends least on other load. Nothing measured here waits.
double secondsSince(std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double residentMegabytes() {
    FILE* file = std::fopen("/proc/self/statm", "r");
    long total = 0;
    long resident = 0;
    const int read = std::fscanf(file, "%ld %ld", &total, &resident);
    std::fclose(file);
    return read == 2 ? static_cast<double>(resident) * 4096 / 1e6 : 0;
}

struct ArtFolder {
    const char* name;
    char** setting;
    unsigned width;
    unsigned height;
};

const ArtFolder artFolders[] = {
    {"marquees", &settings.marqueeDir, 1200, 360},
    {"cabinets", &settings.cabinetDir, 600, 1200},
    {"snaps", &settings.snapshotDir, 640, 480},
    {"flyers", &settings.flyerDir, 1200, 1600},
};

// Writes the files of the first game, which all games share.
void writeArt(unsigned reduction) {
    for (const ArtFolder& art : artFolders) {
        writePhotograph(art.name + std::string("/g0.png"), art.width / reduction, art.height / reduction, 7);
    }
}

// The catalogue and the art of the benchmarked cabinet.
struct Cabinet {
    Cabinet() : records(gameCount, GameRecord{}) {
        iniPath = "missing.ini";
        loadSettings();
        for (const ArtFolder& art : artFolders) {
            std::filesystem::create_directory(art.name);
            std::free(*art.setting);
            *art.setting = strdup(art.name);
        }
        writeArt(1);
        for (int link = 0; link < gameCount * static_cast<int>(std::size(artFolders)); ++link) {
            const std::string folder = artFolders[link / gameCount].name + std::string("/g");
            if (link % gameCount > 0) {
                std::filesystem::create_hard_link(folder + "0.png",
                                                  folder + std::to_string(link % gameCount) + ".png");
            }
        }
        for (int game = 0; game < gameCount; ++game) {
            GameRecord& record = records[static_cast<std::size_t>(game)];
            record.name = strdup(("g" + std::to_string(game)).c_str());
            record.description = strdup(("A Game with a Title " + std::to_string(game)).c_str());
            record.manufacturer = record.description;
            record.year = 1985;
            record.video = &video;
            pointers.push_back(&record);
        }
        visibleGames = pointers.data();
        visibleCount = gameCount;
    }

    char raster[7] = "raster";
    VideoInfo video{raster, orientationHorizontal, 320, 240};
    std::vector<GameRecord> records;
    std::vector<GameRecord*> pointers;
};

struct Frame {
    Frame(int width, int height) {
        for (HDC* dc : {&backDC, &scratchDC}) {
            *dc = CreateCompatibleDC(nullptr);
            HBITMAP& bitmap = dc == &backDC ? backBitmap : scratchBitmap;
            bitmap = CreateCompatibleBitmap(*dc, width, height);
            SelectObject(*dc, bitmap);
        }
        ++viewGeneration;
        topIndex = 0;
        selectedIndex = 0;
    }
    ~Frame() {
        for (const HDC dc : {backDC, scratchDC}) {
            DeleteDC(dc);
        }
        DeleteObject(backBitmap);
        DeleteObject(scratchBitmap);
    }
};

struct BenchmarkCase {
    const char* name;
    std::int32_t menuType;
    std::int32_t rotation;
    std::int32_t previewPictures;
    bool rebuildsPage;
    std::vector<std::string> files; // decoded by a redraw, in addition to tiles
};

// Number of games on the first page of tiles.
int tilesOnPage(int height, int width, std::int32_t rotation) {
    const int side = rotation == 90 || rotation == -90 ? width : height;
    const int pitch = settings.previewModeHeight + settings.previewModeSpacer;
    if (settings.layout == layoutTurned) {
        return (side - settings.previewModeSpacer - statusBarHeight) / pitch;
    }
    return std::min((side - settings.previewModeSpacer - statusBarHeight) / pitch + 1, gameCount);
}

void useLayout(std::int32_t layout) {
    settings.layout = layout;
    startTurnedLayout();
}

void measureRedraw(benchmark::State& state, const BenchmarkCase& testCase, std::int32_t layout, int width,
                   int height) {
    useLayout(layout);
    settings.menuType = testCase.menuType;
    settings.orientation = testCase.rotation;
    settings.previewPictures = testCase.previewPictures;
    const Frame frame(width, height);
    drawScreen(backDC, backBitmap);
    std::vector<std::string> files = testCase.files;
    if (testCase.rebuildsPage) {
        files.insert(files.end(), static_cast<std::size_t>(tilesOnPage(height, width, testCase.rotation)),
                     "marquees/g0.png");
    }
    double drawing = 0;
    double decoding = 0;
    double copying = 0;
    for ([[maybe_unused]] auto step : state) {
        auto start = std::clock();
        for (const std::string& file : files) {
            decodeBare(file);
        }
        decoding += secondsSince(start);
        start = std::clock();
        BitBlt(scratchDC, 0, 0, width, height, backDC, 0, 0, SRCCOPY);
        copying += secondsSince(start);
        ++viewGeneration;
        drawScreen(backDC, backBitmap); // restores the page of tiles overwritten by the copy
        viewGeneration += testCase.rebuildsPage ? 1 : 0;
        start = std::clock();
        drawScreen(backDC, backBitmap);
        const double time = secondsSince(start);
        drawing += time;
        state.SetIterationTime(time);
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["decoding_ms"] = decoding / count * 1e3;
    state.counters["copy_ms"] = copying / count * 1e3;
    state.counters["ratio"] = (drawing - copying) / decoding;
}

// Alternates between both views and all rotations. The art is small, since memory kept per redraw does not
// depend on its size.
void measureMemory(benchmark::State& state) {
    useLayout(layoutFixed);
    writeArt(10);
    const Frame frame(640, 480);
    const std::int32_t rotations[] = {0, 90, 180, -90};
    double before = 0;
    for ([[maybe_unused]] auto step : state) {
        for (int redraw = 0; redraw < 10'000 + 100; ++redraw) {
            settings.orientation = rotations[redraw % 4];
            settings.menuType = redraw / 4 % 2 == 0 ? menuTypeListView : menuTypeImageBrowser;
            settings.previewPictures = redraw / 8 % 5;
            selectedIndex = redraw % gameCount;
            viewGeneration += redraw % 16 == 0 ? 1 : 0;
            drawScreen(backDC, backBitmap);
            before = redraw == 99 ? residentMegabytes() : before;
        }
    }
    state.counters["MB_before"] = before;
    state.counters["MB_after"] = residentMegabytes();
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const TemporaryFolder folder;
    const std::string marquee = "marquees/g0.png";
    const std::string cabinet = "cabinets/g0.png";
    const std::string snap = "snaps/g0.png";
    const std::string flyer = "flyers/g0.png";
    const BenchmarkCase cases[] = {
        {"list/screen_shot", menuTypeListView, 0, previewScreenShots, false, {marquee, snap}},
        {"list/flyer", menuTypeListView, 0, previewFlyers, false, {marquee, flyer}},
        {"list/screen_shot/90", menuTypeListView, 90, previewScreenShots, false, {marquee, snap}},
        {"list/flyer/180", menuTypeListView, 180, previewFlyers, false, {marquee, flyer}},
        {"browser/screen_shot", menuTypeImageBrowser, 0, previewScreenShots, false, {cabinet, snap}},
        {"browser/flyer", menuTypeImageBrowser, 0, previewFlyers, false, {cabinet, flyer}},
        {"browser/flyer/90", menuTypeImageBrowser, 90, previewFlyers, false, {cabinet, flyer}},
        {"browser/new_page", menuTypeImageBrowser, 0, previewScreenShots, true, {cabinet, snap}},
        {"browser/new_page/90", menuTypeImageBrowser, 90, previewScreenShots, true, {cabinet, snap}},
    };
    const Cabinet cabinetFolder;
    const auto registerCase = [](const BenchmarkCase& testCase, std::int32_t layout,
                                 const std::string& name) {
        for (const auto& [width, height] : {std::pair(1440, 1080), {1920, 1080}}) {
            benchmark::RegisterBenchmark(
                (name + "/" + std::to_string(width)).c_str(),
                [testCase, layout, width = width, height = height](benchmark::State& state) {
                    measureRedraw(state, testCase, layout, width, height);
                })
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    };
    for (const BenchmarkCase& testCase : cases) {
        registerCase(testCase, layoutFixed, testCase.name);
        // The turned layout at every rotation.
        for (const std::int32_t rotation : {0, 90, -90, 180}) {
            if (testCase.rotation == 0) {
                BenchmarkCase turned = testCase;
                turned.rotation = rotation;
                registerCase(turned, layoutTurned,
                             "turned/" + std::string(testCase.name) + "/" + std::to_string(rotation));
            }
        }
    }
    benchmark::RegisterBenchmark("10000_redraws", measureMemory)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
