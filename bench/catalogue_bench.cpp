// What the catalogue costs at the size of a current list: the stages of the start (read and link, scan, sort,
// filter) and the sort and filter of a sort command. Run it as `catalogue_bench [LIST]`; without a list it
// makes one of 45,294 records up, and for either a folder with an empty zip for each record.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/game_sort.h"
#include "catalogue/rom_scan.h"
#include "config/settings.h"
#include "platform/files.h"
#include "state/shared_state.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr int recordCount = 45294;

// A folder for the run, removed at its end.
struct WorkFolder {
    std::filesystem::path path;

    WorkFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "catalogue_bench.XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            std::perror("temporary folder");
            std::exit(1);
        }
        path = name;
    }
    ~WorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
};

class ListWriter {
public:
    explicit ListWriter(const std::filesystem::path& path) : list(path) {}

    // Names come in alphabetical order and 60% are clones that lie behind their parent, as in a real list.
    void writeList() {
        std::set<std::string> names;
        while (names.size() < recordCount * 2 / 5) {
            names.insert(randomWord(3, 8));
        }
        int written = 0;
        int parentsLeft = static_cast<int>(names.size());
        for (const std::string& parent : names) {
            writeRecord(parent, nullptr);
            ++written;
            --parentsLeft;
            const int average = (recordCount - written - parentsLeft) / (parentsLeft + 1);
            const int clones = parentsLeft == 0 ? recordCount - written : number(0, 2 * average + 1);
            for (int clone = 0; clone < clones && written < recordCount - parentsLeft; ++clone, ++written) {
                writeRecord(parent + randomWord(1, 3) + std::to_string(clone), parent.c_str());
            }
        }
    }

private:
    int number(int lowest, int highest) {
        return std::uniform_int_distribution<int>(lowest, highest)(generator);
    }

    std::string randomWord(int shortest, int longest) {
        // Letters about as often as they stand in names.
        static constexpr char letters[] = "aaaaabbcddeeeeeefghiiiijklllmmmnnnnooooppqrrrrssssttttuuvwxyz0123";
        std::string word;
        for (int length = number(shortest, longest); length > 0; --length) {
            word += letters[number(0, static_cast<int>(sizeof letters) - 2)];
        }
        return word;
    }

    std::string randomTitle() {
        std::string title;
        for (int words = number(1, 4); words > 0; --words) {
            std::string word = randomWord(3, 9);
            word[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(word[0])));
            title += (title.empty() ? "" : " ") + word;
        }
        return number(0, 2) == 0 ? title + " (set " + std::to_string(number(1, 9)) + ")" : title;
    }

    void writeRecord(const std::string& name, const char* parent) {
        const bool isResource = parent == nullptr && number(0, 2) == 0;
        list << (isResource ? "resource (\n" : "game (\n") << "\tname " << name << "\n\tdescription \""
             << randomTitle() << "\"\n";
        if (number(0, 9) != 0) {
            list << "\tyear " << (number(0, 19) == 0 ? "19??" : std::to_string(number(1971, 2023))) << "\n";
        }
        list << "\tmanufacturer \"" << makers[static_cast<std::size_t>(number(0, 199))] << "\"\n";
        if (parent != nullptr) {
            list << "\tcloneof " << parent << "\n\tromof " << (number(0, 19) == 0 ? "neogeo" : parent)
                 << "\n";
        }
        if (!isResource) {
            list << "\tvideo ( screen raster orientation " << (number(0, 3) == 0 ? "vertical" : "horizontal")
                 << " x 320 y 240 )\n\tinput ( players " << number(1, 4) << " control joy8way buttons "
                 << number(0, 6) << " coins " << number(0, 2) << " )\n";
        }
        list << ")\n\n";
    }

    std::ofstream list;
    std::mt19937 generator{1971};
    std::vector<std::string> makers = [this] {
        std::vector<std::string> made;
        for (int maker = 0; maker < 200; ++maker) {
            made.push_back(randomTitle());
        }
        return made;
    }();
};

double millisecondsOf(void (*stage)()) {
    const auto start = std::chrono::steady_clock::now();
    stage();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

std::string listPath;

void readStage() {
    FILE* list = openTextFile(listPath.c_str());
    if (list == nullptr) {
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

// From the order before it in the cycle, name, year, manufacturer and name again.
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

// An empty zip for each record of the list.
void makeZips(const std::filesystem::path& folder) {
    std::filesystem::create_directory(folder);
    readStage();
    for (std::int32_t game = 0; game < gameCount; ++game) {
        if (allGames[game]->name != nullptr) {
            std::ofstream(folder / (std::string(allGames[game]->name) + ".zip"));
        }
    }
    freeGameList();
}

void openAllFilters() {
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
    const WorkFolder folder;
    listPath = argc > 1 ? argv[1] : (folder.path / "listinfo.dat").string();
    if (argc <= 1) {
        ListWriter(listPath).writeList();
    }
    std::string romsFolder = (folder.path / "roms").string();
    settings.romsDir = romsFolder.data();
    openAllFilters();
    makeZips(romsFolder);

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
