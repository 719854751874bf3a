// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the catalogue with a list of current size: the stages of startup (read and link, scan, sort,
// filter) and the sort and filter of a sort command. Usage: `catalogue_bench [LIST]`. Without LIST, generates
// a list of 45,294 records. Creates an empty zip for each record in both cases.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/rom_scan.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "large_cabinet.h"
#include "platform/files.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

double millisecondsOf(void (*stage)()) {
    const auto start = std::chrono::steady_clock::now();
    stage();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

std::string listPath;

void readStage() {
    FILE* list = openTextFile(listPath.c_str());
    if (!list) {
        std::fprintf(stderr, "cannot open %s\n", listPath.c_str());
        std::exit(1);
    }
    readGameList(list);
    std::fclose(list);
}

void measureStart(benchmark::State& state) {
    settings.sortBy = static_cast<std::int32_t>(state.range(0));
    double read = 0;
    double scan = 0;
    double sort = 0;
    double filter = 0;
    for ([[maybe_unused]] auto step : state) {
        const auto heapBefore = mallinfo2();
        const double readTime = millisecondsOf(readStage);
        const double scanTime = millisecondsOf(scanRoms);
        const double sortTime = millisecondsOf(sortGames);
        const double filterTime = millisecondsOf(filterGames);
        read += readTime;
        scan += scanTime;
        sort += sortTime;
        filter += filterTime;
        state.SetIterationTime((readTime + scanTime + sortTime + filterTime) / 1000);
        const auto heapAfter = mallinfo2();
        state.counters["heapMiB"] = static_cast<double>(heapAfter.uordblks + heapAfter.hblkhd -
                                                        heapBefore.uordblks - heapBefore.hblkhd) /
                                    (1024 * 1024);
        state.counters["records"] = gameCount;
        state.counters["visible"] = visibleCount;
        freeGameList();
    }
    const auto average = benchmark::Counter::kAvgIterations;
    state.counters["1 read ms"] = benchmark::Counter(read, average);
    state.counters["2 scan ms"] = benchmark::Counter(scan, average);
    state.counters["3 sort ms"] = benchmark::Counter(sort, average);
    state.counters["4 filter ms"] = benchmark::Counter(filter, average);
}

// Sorts from the previous order in the cycle of name, year and manufacturer.
void measureSortCycle(benchmark::State& state) {
    readStage();
    scanRoms();
    for ([[maybe_unused]] auto step : state) {
        settings.sortBy = static_cast<std::int32_t>((state.range(0) + 2) % 3);
        sortGames();
        settings.sortBy = static_cast<std::int32_t>(state.range(0));
        state.SetIterationTime((millisecondsOf(sortGames) + millisecondsOf(filterGames)) / 1000);
    }
    freeGameList();
}

void measureRelease(benchmark::State& state) {
    for ([[maybe_unused]] auto step : state) {
        readStage();
        state.SetIterationTime(millisecondsOf(freeGameList) / 1000);
    }
}

void disableFilters() {
    settings.displayMissingRoms = 0;
    for (std::int32_t Settings::*flag :
         {&Settings::displayVertical, &Settings::displayHorizontal, &Settings::displayClones,
          &Settings::displayNeoGeo, &Settings::displayNonNeoGeo, &Settings::displayVector,
          &Settings::displayRaster}) {
        settings.*flag = 1;
    }
    settings.maxPlayers = 8;
    settings.maxButtons = 8;
    settings.maxCoins = 8;
    settings.controllerTypes = 127;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const TemporaryFolder folder;
    listPath = argc > 1 ? std::filesystem::absolute(argv[1]).string() : folder.pathOf("listinfo.dat");
    if (argc <= 1) {
        writeLargeList(listPath);
    }
    std::string romsFolder = folder.pathOf("roms");
    settings.romsDir = romsFolder.data();
    disableFilters();
    writeZips(listPath, romsFolder);

    for (const auto& [name, order] :
         {std::pair{"name", sortByName}, {"year", sortByYear}, {"maker", sortByManufacturer}}) {
        benchmark::RegisterBenchmark((std::string("start/") + name).c_str(), measureStart)
            ->Arg(order)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((std::string("sortCycle/") + name).c_str(), measureSortCycle)
            ->Arg(order)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("release", measureRelease)->UseManualTime()->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
