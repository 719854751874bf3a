// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_catalogue.h"

#include "catalogue/list_parser.h"
#include "catalogue/visible_games.h"

#include <cstdlib>
#include <memory_resource>
#include <span>
#include <string_view>
#include <unordered_map>

GameRecord** allGames = nullptr;
std::int32_t gameCount = 0;
HashTable* gameIndex = nullptr;

namespace {

// All records. The list is read in a thread, which would wait for the main thread, and that for it, if every
// record were allocated by itself. Not destroyed at exit, when that thread may still run.
std::pmr::monotonic_buffer_resource* recordMemory = nullptr;

// Defaults for data that is missing in a block. Shared by all records and never modified.
char emptyText[] = "";
char rasterWord[] = "raster";
VideoInfo defaultVideo = {rasterWord, orientationHorizontal, 0, 0};
InputInfo defaultInput = {0, 0, 0, controlJoy4Way};

// Fills in what the sort, the filter and the views read without checking. A game without a name could be
// neither selected nor started, so it is hidden as a resource.
void completeRecord(GameRecord& record) {
    if (!record.name) {
        record.isResource = 1;
    }
    if (!record.description) {
        record.description = record.name ? record.name : emptyText;
    }
    if (!record.manufacturer) {
        record.manufacturer = emptyText;
    }
    if (record.isResource == 0) {
        record.video = record.video ? record.video : &defaultVideo;
        record.input = record.input ? record.input : &defaultInput;
    }
}

bool resizeCatalogue(std::size_t capacity) {
    void* resized = std::realloc(static_cast<void*>(allGames), capacity * sizeof(GameRecord*));
    if (!resized) {
        return false;
    }
    allGames = static_cast<GameRecord**>(resized);
    return true;
}

// Grows the array by half each time, so that the copying stays linear.
void readRecords(FILE* stream) {
    constexpr std::size_t firstBlockSize = 1 << 20;
    if (!recordMemory) {
        recordMemory = new std::pmr::monotonic_buffer_resource(firstBlockSize);
    }
    std::size_t capacity = 0;
    while (GameRecord* record = parseGameRecord(stream, *recordMemory)) {
        if (static_cast<std::size_t>(gameCount) == capacity) {
            capacity = capacity + capacity / 2 + 1024;
            if (!resizeCatalogue(capacity)) {
                break;
            }
        }
        completeRecord(*record);
        allGames[gameCount++] = record;
    }
    if (gameCount > 0) {
        resizeCatalogue(static_cast<std::size_t>(gameCount));
    }
}

// Finds the parents in a map, since the chains of the index are long. Both find the first of several records
// with the same name.
void linkClones() {
    std::pmr::monotonic_buffer_resource memory;
    std::pmr::unordered_map<std::string_view, GameRecord*> records(&memory);
    records.reserve(static_cast<std::size_t>(gameCount));
    for (GameRecord* record : std::span(allGames, static_cast<std::size_t>(gameCount))) {
        if (record->name) {
            records.try_emplace(record->name, record);
        }
    }
    for (GameRecord* record : std::span(allGames, static_cast<std::size_t>(gameCount))) {
        const auto found = record->cloneOf ? records.find(record->cloneOf) : records.end();
        record->parent = found != records.end() ? found->second : nullptr;
    }
}

} // namespace

void readGameList(FILE* stream) {
    readRecords(stream);
    gameIndex = hashCreate(static_cast<std::uint32_t>(gameCount), hashGameName, gameNameEquals);
    for (std::int32_t game = 0; game < gameCount; ++game) {
        hashInsert(allGames[game]->name, allGames[game], gameIndex);
    }
    linkClones();
}

void freeGameList() {
    setVisibleGames(nullptr, 0);
    hashDestroy(gameIndex);
    gameIndex = nullptr;
    for (std::int32_t game = 0; game < gameCount; ++game) {
        freeGameRecord(allGames[game]);
    }
    delete recordMemory;
    recordMemory = nullptr;
    std::free(static_cast<void*>(allGames));
    allGames = nullptr;
    gameCount = 0;
}
