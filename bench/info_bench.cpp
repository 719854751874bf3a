// Measures reading a game information file of 30 MB with 50,000 blocks, in code page 1252 and in UTF-8 with a
// byte order mark, for a list of 45,294 records. Most blocks belong to games of the list.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "config/settings.h"
#include "large_cabinet.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <string>

namespace {

constexpr int blockCount = 50'000;
constexpr int linesInBlock = 9;

void readList(const std::string& path) {
    FILE* list = openTextFile(path.c_str());
    readGameList(list);
    std::fclose(list);
}

// Uses the names of the catalogue and, for the remaining blocks, names that are not in it.
void writeInfo(const std::string& path, const std::string& head, const std::string& accent) {
    std::ofstream file(path, std::ios::binary);
    file << head << "# Information for many games\r\n\r\n";
    for (int block = 0; block < blockCount; ++block) {
        const char* known = block < gameCount ? allGames[block]->name : nullptr;
        file << "$info=" << (known ? known : "unlisted" + std::to_string(block)) << ",\r\n$mame\r\n\r\n";
        for (int line = 0; line < linesInBlock; ++line) {
            file << "Line " << line << " of a caf" << accent
                 << " where somebody tells what this game was.\r\n\r\n";
        }
        file << "$end\r\n\r\n";
    }
}

void measureInfo(benchmark::State& state, const std::string& list, const std::string& info) {
    std::int64_t lines = 0;
    for ([[maybe_unused]] auto step : state) {
        readList(list);
        settings.useMameInfoDat = 1;
        const auto start = std::chrono::steady_clock::now();
        loadGameInfo(info.c_str());
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        lines = 0;
        for (std::int32_t game = 0; game < gameCount; ++game) {
            lines += allGames[game]->infoLineCount;
        }
        freeGameList();
    }
    state.counters["lines"] = static_cast<double>(lines);
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(info)) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const TemporaryFolder folder;
    const std::string list = folder.pathOf("listinfo.dat");
    writeLargeList(list);
    readList(list);
    writeInfo("ansi.dat", "", "\xE9");
    writeInfo("utf8.dat", "\xEF\xBB\xBF", "\xC3\xA9");
    freeGameList();
    for (const char* name : {"ansi.dat", "utf8.dat"}) {
        benchmark::RegisterBenchmark(name, [&list, info = folder.pathOf(name)](
                                               benchmark::State& state) { measureInfo(state, list, info); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
