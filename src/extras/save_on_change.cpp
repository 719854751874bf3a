#include "extras/save_on_change.h"

#include "app/stopwatch.h"
#include "catalogue/selection.h"
#include "config/settings.h"
#include "config/settings_file.h"

namespace {

// The game that the player has selected; borrowed from its record, null when no game is visible.
const char* playersGame = nullptr;

// Hashes of the saved values: as last seen, and as last written.
std::uint64_t seenState = 0;
std::uint64_t writtenState = 0;
Stopwatch sinceChange;

void observe() {
    if (!isAttractPick) {
        const GameRecord* game = selectedGame();
        playersGame = game ? game->name : nullptr;
    }
    const std::uint64_t state = savedStateHash(playersGame);
    if (state != seenState) {
        seenState = state;
        sinceChange.restart();
    }
}

void save() {
    saveSettings(playersGame);
    writtenState = seenState;
}

} // namespace

void startSaveOnChange() {
    observe();
    writtenState = seenState;
}

void saveWhenDue() {
    if (settings.saveOnChange == 0) {
        return;
    }
    constexpr std::int64_t millisecondsPerSecond = 1000;
    observe();
    if (seenState != writtenState &&
        sinceChange.milliseconds() >= settings.saveOnChange * millisecondsPerSecond) {
        save();
    }
}

void saveBeforeGame() {
    if (settings.saveOnChange == 0) {
        return;
    }
    observe();
    if (seenState != writtenState) {
        save();
    }
}
