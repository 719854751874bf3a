// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/game_info.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "platform/diagnostics.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

// A longer line is read in pieces, each of which counts as a line.
constexpr int lineBufferSize = 1024;

enum class State {
    outside, // between blocks
    header,  // after the $info line
    text,    // in a text, whose lines are stored
    skipped, // in a text that is ignored
};

// The block being read. Lines are stored only when its game is in the catalogue.
struct InfoBlock {
    GameRecord* game = nullptr;
    std::vector<char*> lines; // owned, allocated with malloc like GameRecord::infoLines

    InfoBlock() = default;
    InfoBlock(const InfoBlock&) = delete;
    InfoBlock& operator=(const InfoBlock&) = delete;
    ~InfoBlock() { clear(); }

    void clear() {
        for (char* line : lines) {
            std::free(line);
        }
        lines.clear();
    }

    void store(std::string_view line) {
        auto* copy = static_cast<char*>(std::malloc(line.size() + 1));
        if (copy) {
            std::memcpy(copy, line.data(), line.size());
            copy[line.size()] = '\0';
            lines.push_back(copy);
        }
    }
};

// Finds the same records as gameIndex, the first of several with one name. The chains of gameIndex are too
// long for tens of thousands of lookups in a row.
using NameIndex = std::unordered_map<std::string_view, GameRecord*>;

NameIndex indexNames() {
    NameIndex names;
    names.reserve(static_cast<std::size_t>(gameCount));
    for (std::int32_t game = 0; game < gameCount; ++game) {
        if (allGames[game]->name) {
            names.emplace(allGames[game]->name, allGames[game]);
        }
    }
    return names;
}

// Only the first of the comma-separated names is used.
void openBlock(InfoBlock& block, std::string_view line, const NameIndex& names) {
    constexpr std::size_t nameStart = 6;
    line.remove_prefix(std::min(nameStart, line.size()));
    const auto found = names.find(line.substr(0, line.find(',')));
    block.game = found != names.end() ? found->second : nullptr;
}

void freeInfo(GameRecord& game) {
    for (std::int32_t line = 0; line < game.infoLineCount; ++line) {
        std::free(game.infoLines[line]);
    }
    std::free(static_cast<void*>(game.infoLines));
    game.infoLines = nullptr;
    game.infoLineCount = 0;
}

// Moves the lines to the game, replacing those of an earlier block.
void closeBlock(InfoBlock& block) {
    if (!block.game) {
        return;
    }
    freeInfo(*block.game);
    const std::size_t size = block.lines.size() * sizeof(char*);
    auto** lines = size > 0 ? static_cast<char**>(std::malloc(size)) : nullptr;
    if (!lines) {
        block.clear();
        return;
    }
    std::memcpy(static_cast<void*>(lines), static_cast<const void*>(block.lines.data()), size);
    block.game->infoLines = lines;
    block.game->infoLineCount = static_cast<std::int32_t>(block.lines.size());
    block.lines.clear();
}

struct InfoStatement {
    std::string_view word;
    State allowed;
    State alsoAllowed;
    State next;
};

// Matched against the start of a line; what follows the word is ignored.
constexpr InfoStatement statements[] = {
    {"$info", State::outside, State::outside, State::header},
    {"$mame", State::header, State::header, State::text},
    {"$bio", State::header, State::header, State::text},
    {"$drv", State::header, State::header, State::skipped},
    {"$end", State::text, State::skipped, State::outside},
};

const InfoStatement* findStatement(std::string_view line) {
    if (!line.starts_with('$')) {
        return nullptr;
    }
    const auto* found = std::ranges::find_if(
        statements, [line](const InfoStatement& statement) { return line.starts_with(statement.word); });
    return found != std::end(statements) ? found : nullptr;
}

// Executes the statement. Returns false when it is not allowed in the current state.
bool execute(const InfoStatement& statement, std::string_view line, const NameIndex& names, State& state,
             InfoBlock& block) {
    if (state != statement.allowed && state != statement.alsoAllowed) {
        return false;
    }
    state = statement.next;
    if (state == State::header) {
        openBlock(block, line, names);
    } else if (state == State::outside) {
        closeBlock(block);
    }
    return true;
}

} // namespace

std::int32_t parseGameInfo(FILE* stream) {
    const NameIndex names = indexNames();
    State state = State::outside;
    InfoBlock block;
    char buffer[lineBufferSize];
    while (std::fgets(buffer, lineBufferSize, stream)) {
        if (buffer[0] == '\0' || buffer[0] == '#') {
            continue;
        }
        // The last character is dropped, whatever it is; normally it is the line end.
        const std::string_view line(buffer, std::strlen(buffer) - 1);
        if (const InfoStatement* statement = findStatement(line)) {
            if (!execute(*statement, line, names, state, block)) {
                writeDiagnostic(standardOutput, "invalid state found!!!");
                break;
            }
        } else if (state == State::text) {
            if (block.game) {
                block.store(line);
            }
            // The format has an empty line after each line of text; skip it.
            if (!line.empty() && !std::fgets(buffer, lineBufferSize, stream)) {
                break;
            }
        }
    }
    return state == State::outside ? 1 : 0;
}

std::int32_t loadGameInfo(const char* path) {
    if (settings.useMameInfoDat == 0) {
        return 1;
    }
    FILE* stream = openTextFile(path);
    if (!stream) {
        settings.useMameInfoDat = 0;
        return 1;
    }
    parseGameInfo(stream);
    std::fclose(stream);
    return 1;
}
