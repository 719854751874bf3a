#include "catalogue/game_catalogue.h"

#include "catalogue/list_parser.h"
#include "catalogue/visible_games.h"

#include <cstdlib>

GameRecord** allGames = nullptr;
std::int32_t gameCount = 0;
HashTable* gameIndex = nullptr;

namespace {

// What stands in for the parts that a block lacks. Records borrow them; nobody writes to them.
char emptyText[] = "";
char rasterWord[] = "raster";
VideoInfo plainVideo = {rasterWord, orientationHorizontal, 0, 0};
InputInfo plainInput = {0, 0, 0, controlJoy4Way};

// Gives the record what sort, filter and views read without a test. A block without a name cannot be selected
// or started, so it is kept out of sight.
void completeRecord(GameRecord& record) {
    if (record.name == nullptr) {
        record.isResource = 1;
    }
    if (record.description == nullptr) {
        record.description = record.name != nullptr ? record.name : emptyText;
    }
    if (record.manufacturer == nullptr) {
        record.manufacturer = emptyText;
    }
    if (record.isResource == 0) {
        record.video = record.video != nullptr ? record.video : &plainVideo;
        record.input = record.input != nullptr ? record.input : &plainInput;
    }
}

bool resizeCatalogue(std::size_t capacity) {
    void* resized = std::realloc(static_cast<void*>(allGames), capacity * sizeof(GameRecord*));
    if (resized == nullptr) {
        return false;
    }
    allGames = static_cast<GameRecord**>(resized);
    return true;
}

// The array grows by half: growing by one would copy the whole array again and again.
void readRecords(FILE* stream) {
    std::size_t capacity = 0;
    while (GameRecord* record = parseGameRecord(stream)) {
        if (static_cast<std::size_t>(gameCount) == capacity) {
            capacity = capacity + capacity / 2 + 1024;
            if (!resizeCatalogue(capacity)) {
                freeGameRecord(record);
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

} // namespace

void readGameList(FILE* stream) {
    readRecords(stream);
    gameIndex = hashCreate(static_cast<std::uint32_t>(gameCount), hashGameName, gameNameEquals);
    for (std::int32_t game = 0; game < gameCount; ++game) {
        hashInsert(allGames[game]->name, allGames[game], gameIndex);
    }
    for (std::int32_t game = 0; game < gameCount; ++game) {
        allGames[game]->parent = static_cast<GameRecord*>(hashFind(allGames[game]->cloneOf, gameIndex));
    }
}

void freeGameList() {
    setVisibleGames(nullptr, 0);
    hashDestroy(gameIndex);
    gameIndex = nullptr;
    for (std::int32_t game = 0; game < gameCount; ++game) {
        freeGameRecord(allGames[game]);
    }
    std::free(static_cast<void*>(allGames));
    allGames = nullptr;
    gameCount = 0;
}
