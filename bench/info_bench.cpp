// SPDX-License-Identifier: GPL-3.0-or-later
// Measures reading a game information file of 30 MB with 50,000 blocks, in code page 1252 and in UTF-8 with a
// byte order mark, for a list of 45,294 records. Most blocks belong to games of the list. Then indexing a
// history file of 60 MB, compared with an expat parse with empty handlers, and reading a text from it.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "config/settings.h"
#include "extras/history_xml.h"
#include "large_cabinet.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <chrono>
#include <cstdio>
#include <ctime>
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

// As the published file: mostly text, an entry names a game and its clones or software of other machines.
void writeHistory(const char* path) {
    constexpr std::size_t size = 60'000'000;
    std::ofstream file(path, std::ios::binary);
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<history version=\"2.60\" date=\"2026-01-01\">\n";
    for (int entry = 0, game = 0; static_cast<std::size_t>(file.tellp()) < size; ++entry) {
        file << "\t<entry>\n\t\t<" << (entry % 3 == 0 ? "software" : "systems") << ">\n";
        for (int name = 0; name <= entry % 5; ++name) {
            if (entry % 3 == 0) {
                file << "\t\t\t<item list=\"cassettes\" name=\"tape" << entry + name << "\" />\n";
            } else {
                file << "\t\t\t<system name=\"" << allGames[game++ % gameCount]->name << "\" />\n";
            }
        }
        file << "\t\t</" << (entry % 3 == 0 ? "software" : "systems") << ">\n\t\t<text>Game &amp; maker\n\n";
        for (int line = 0; line < 15; ++line) {
            file << "Line " << line
                 << " of a caf\xC3\xA9 where somebody tells at length what this game was.\n\n";
        }
        file << "\t\t</text>\n\t</entry>\n";
    }
    file << "</history>\n";
}

void XMLCALL ignoreStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL ignoreEnd(void*, const XML_Char*) {}

// Processor time, since the ratio of elapsed times depends on what else the machine does.
double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

double parseSeconds(FILE* file) {
    constexpr int block = 65536;
    const double start = processorSeconds();
    const XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, ignoreStart, ignoreEnd);
    for (std::size_t count = block; count > 0;) {
        count = std::fread(XML_GetBuffer(parser, block), 1, block, file);
        XML_ParseBuffer(parser, static_cast<int>(count), count == 0);
    }
    XML_ParserFree(parser);
    return processorSeconds() - start;
}

void measureHistory(benchmark::State& state, const char* path) {
    FILE* file = std::fopen(path, "rb");
    double parsed = 0;
    double indexed = 0;
    std::vector<HistoryPlace> index;
    for ([[maybe_unused]] auto step : state) {
        std::rewind(file);
        parsed += parseSeconds(file);
        std::rewind(file);
        index.clear();
        const double start = processorSeconds();
        indexHistory(file, {}, index);
        const double seconds = processorSeconds() - start;
        indexed += seconds;
        state.SetIterationTime(seconds);
    }
    std::fclose(file);
    state.counters["ratio"] = indexed / parsed;
    state.counters["systems"] = static_cast<double>(index.size());
    state.counters["KiB kept"] = static_cast<double>(index.capacity() * sizeof(HistoryPlace)) / 1024;
}

void measureHistoryText(benchmark::State& state, const char* path, const std::string& name) {
    FILE* file = std::fopen(path, "rb");
    std::vector<HistoryPlace> index;
    indexHistory(file, {}, index);
    std::size_t lines = 0;
    for ([[maybe_unused]] auto step : state) {
        lines = readHistory(file, index, name).size();
    }
    std::fclose(file);
    state.counters["lines"] = static_cast<double>(lines);
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
    writeHistory("history.xml");
    const std::string lastGame = allGames[gameCount - 1]->name;
    freeGameList();
    for (const char* name : {"ansi.dat", "utf8.dat"}) {
        benchmark::RegisterBenchmark(name, [&list, info = folder.pathOf(name)](
                                               benchmark::State& state) { measureInfo(state, list, info); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("history.xml", measureHistory, "history.xml")
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("history.xml/text", measureHistoryText, "history.xml", lastGame)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
