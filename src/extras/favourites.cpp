// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/favourites.h"

#include "app/game_files.h"
#include "catalogue/game_catalogue.h"
#include "catalogue/game_filter.h"
#include "catalogue/selection.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "input/controls.h"
#include "input/press_tracker.h"
#include "input/sounds.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/painting.h"
#include "platform/sound.h"
#include "render/composition.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace {

// One name a line. Lines that name no game of the list are kept.
constexpr char favouritesFile[] = "favourites.dat";
// A thousand times what a player marks; anything larger is some other kind of file.
constexpr std::size_t largestFile = std::size_t{8} << 20;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Returns the text of the file; empty when there is none; nothing when it exists but cannot be read.
std::optional<std::string> readMarks() {
    const std::optional<std::string> text = readFileText(favouritesFile, largestFile);
    return text || fileExists(favouritesFile) ? text : "";
}

// Removes the first line from the text and returns it with its line end.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end == std::string_view::npos ? end : end + 1);
    text.remove_prefix(line.size());
    return line;
}

std::string_view nameOf(std::string_view line) {
    constexpr std::string_view blanks = " \t\r\n";
    if (line.starts_with(byteOrderMark)) {
        line.remove_prefix(byteOrderMark.size());
    }
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

std::string withName(std::string text, std::string_view name) {
    std::string_view rest = text;
    const std::string lineEnd = takeLine(rest).ends_with("\r\n") ? "\r\n" : "\n";
    if (!text.empty() && text.back() != '\n') {
        text += lineEnd;
    }
    return text.append(name).append(lineEnd);
}

std::string withoutName(std::string_view text, std::string_view name) {
    std::string kept;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (nameOf(line) != name) {
            kept += line;
        }
    }
    return kept;
}

// All records at once: several may have the same name.
void markGames(std::string_view text) {
    std::unordered_set<std::string_view> names;
    while (!text.empty()) {
        names.insert(nameOf(takeLine(text)));
    }
    for (std::int32_t game = 0; game < gameCount; ++game) {
        const char* name = allGames[game]->name;
        allGames[game]->isFavourite = name && names.contains(name) ? 1 : 0;
    }
}

// Reads the file again each time, so that what another program has written there is kept. Returns false,
// after reporting the failure, when the file could not be changed.
bool changeMark(const GameRecord& game) {
    const std::optional<std::string> text = readMarks();
    if (!text) {
        writeDiagnostic(standardError, "favourites.dat cannot be read, so no mark is changed.");
        return false;
    }
    std::string changed = withoutName(*text, game.name);
    if (!game.isFavourite) {
        changed = changed == *text ? withName(*text, game.name) : *text;
    }
    if (changed != *text && !replaceFileText(favouritesFile, changed)) {
        writeDiagnostic(standardError, "favourites.dat cannot be written, so no mark is changed.");
        return false;
    }
    markGames(changed);
    return true;
}

// Returns the marked game of the view that is nearest to the selection, the later one of two; null without
// any.
const GameRecord* nearestFavourite() {
    for (std::int32_t distance = 0; distance < visibleCount; ++distance) {
        for (const std::int32_t index : {selectedIndex + distance, selectedIndex - distance}) {
            if (index >= 0 && index < visibleCount && visibleGames[index]->isFavourite) {
                return visibleGames[index];
            }
        }
    }
    return nullptr;
}

void showGames(std::int32_t favouritesOnly, const GameRecord* selected) {
    settings.favouritesOnly = favouritesOnly;
    filterGames();
    GameRecord** const end = visibleGames + visibleCount;
    GameRecord** const found = std::find(visibleGames, end, selected);
    selectedIndex = found == end ? 0 : static_cast<std::int32_t>(found - visibleGames);
}

bool toggleMark() {
    const GameRecord* game = selectedGame();
    if (!game || !changeMark(*game)) {
        return false;
    }
    if (settings.favouritesOnly) {
        // Without the last mark there would be nothing to see.
        const GameRecord* next = nearestFavourite();
        showGames(next ? 1 : 0, next ? next : game);
    }
    return true;
}

bool toggleView() {
    const GameRecord* shown = settings.favouritesOnly ? selectedGame() : nearestFavourite();
    if (!settings.favouritesOnly && !shown) {
        return false;
    }
    showGames(settings.favouritesOnly ? 0 : 1, shown);
    return true;
}

struct PressCommand {
    std::int32_t Settings::*key;
    std::int32_t Settings::*joystick;
    bool (*execute)(); // returns false when it is refused
    bool isHeld;       // at the end of the last tick
};

std::array<PressCommand, 2> commands = {{
    {&Settings::keyFavourite, &Settings::joyFavourite, toggleMark, false},
    {&Settings::keyFavouritesOnly, &Settings::joyFavouritesOnly, toggleView, false},
}};

// Also true when the control was released and pressed again since the last tick.
bool isNewlyPressed(PressCommand& command) {
    const std::int32_t key = settings.*command.key;
    const std::int32_t joystick = settings.*command.joystick;
    const KeyReading reading = key != 0 ? readKey(key) : KeyReading{};
    const bool pushed = !reading.active && joystick != 0 && joyPressed(joystick);
    filterReading({command.key, command.joystick, reading, pushed}); // tracks the control for early ticks
    const bool wasHeld = command.isHeld;
    command.isHeld = reading.active || pushed;
    return command.isHeld && (!wasHeld || reading.pressed);
}

} // namespace

void startFavourites() {
    settings.favouritesOnly = 0;
    for (PressCommand& command : commands) {
        command.isHeld = false;
    }
    if (!hasFavouriteControls()) {
        return;
    }
    const std::optional<std::string> text = readMarks();
    if (!text) {
        writeDiagnostic(standardError, "favourites.dat cannot be read, so no game is marked.");
    }
    markGames(text.value_or(""));
}

void serveFavourites(HWND window) {
    for (PressCommand& command : commands) {
        if (isNewlyPressed(command)) {
            const bool executed = command.execute();
            if (executed) {
                redraw(window);
                UpdateWindow(window);
            }
            playSoundFile(executed ? settings.soundSelect : settings.soundError, SND_ASYNC);
        }
    }
}
