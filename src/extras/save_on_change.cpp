// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/save_on_change.h"

#include "app/stopwatch.h"
#include "app/tick_clock.h"
#include "catalogue/selection.h"
#include "config/settings.h"
#include "config/settings_file.h"

namespace {

// Hashes of the saved values: as last seen, and as last written.
std::uint64_t seenState = 0;
std::uint64_t writtenState = 0;
Stopwatch sinceChange;

void observe() {
    const std::uint64_t state = savedStateHash(playersGameName());
    if (state != seenState) {
        seenState = state;
        sinceChange.restart();
    }
}

void save() {
    saveSettings(playersGameName());
    writtenState = seenState;
}

void saveWhenDue() {
    observe();
    if (seenState != writtenState &&
        sinceChange.milliseconds() >= settings.saveOnChange * millisecondsPerSecond) {
        save();
    }
}

} // namespace

void startSaveOnChange() {
    observe();
    writtenState = seenState;
    workBetweenTicks = settings.saveOnChange > 0 ? saveWhenDue : nullptr;
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
