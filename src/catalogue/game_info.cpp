#include "catalogue/game_info.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "platform/diagnostics.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

// A longer line arrives in pieces, each of which counts as a line.
constexpr int lineBufferSize = 1024;

enum class State {
    outside, // between blocks
    header,  // behind the line of names
    text,    // lines are stored
    skipped, // lines are ignored
};

// The block in hand. Its lines are kept only when its game is in the list.
struct Block {
    GameRecord* game = nullptr;
    std::vector<char*> lines; // owned, from malloc as those of a record

    Block() = default;
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { clear(); }

    void clear() {
        for (char* line : lines) {
            std::free(line);
        }
        lines.clear();
    }

    void store(std::string_view line) {
        auto* copy = static_cast<char*>(std::malloc(line.size() + 1));
        if (copy != nullptr) {
            std::memcpy(copy, line.data(), line.size());
            copy[line.size()] = '\0';
            lines.push_back(copy);
        }
    }
};

// The records by name, of equal names the first, as gameIndex has them. Its chains, of names with the same
// sum of letters, are too long for tens of thousands of look-ups in a row.
using NameIndex = std::unordered_map<std::string_view, GameRecord*>;

NameIndex indexNames() {
    NameIndex names;
    names.reserve(static_cast<std::size_t>(gameCount));
    for (std::int32_t game = 0; game < gameCount; ++game) {
        if (allGames[game]->name != nullptr) {
            names.emplace(allGames[game]->name, allGames[game]);
        }
    }
    return names;
}

// Only the first name of the line counts.
void openBlock(Block& block, std::string_view line, const NameIndex& names) {
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

// Gives the lines to the game, in place of those it may have from a former block.
void closeBlock(Block& block) {
    if (block.game == nullptr) {
        return;
    }
    freeInfo(*block.game);
    const std::size_t size = block.lines.size() * sizeof(char*);
    auto** lines = size > 0 ? static_cast<char**>(std::malloc(size)) : nullptr;
    if (lines == nullptr) {
        block.clear();
        return;
    }
    std::memcpy(static_cast<void*>(lines), static_cast<const void*>(block.lines.data()), size);
    block.game->infoLines = lines;
    block.game->infoLineCount = static_cast<std::int32_t>(block.lines.size());
    block.lines.clear();
}

struct Statement {
    std::string_view word;
    State wanted;
    State alsoWanted;
    State next;
};

// Known by the head of the line alone, so that other letters may follow.
constexpr Statement statements[] = {
    {"$info", State::outside, State::outside, State::header},
    {"$mame", State::header, State::header, State::text},
    {"$bio", State::header, State::header, State::text},
    {"$drv", State::header, State::header, State::skipped},
    {"$end", State::text, State::skipped, State::outside},
};

const Statement* findStatement(std::string_view line) {
    if (!line.starts_with('$')) {
        return nullptr;
    }
    const auto* found = std::ranges::find_if(
        statements, [line](const Statement& statement) { return line.starts_with(statement.word); });
    return found != std::end(statements) ? found : nullptr;
}

// Moves on to the statement's state; false when the statement is out of place.
bool carryOut(const Statement& statement, std::string_view line, const NameIndex& names, State& state,
              Block& block) {
    if (state != statement.wanted && state != statement.alsoWanted) {
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
    Block block;
    char buffer[lineBufferSize];
    while (std::fgets(buffer, lineBufferSize, stream) != nullptr) {
        if (buffer[0] == '\0' || buffer[0] == '#') {
            continue;
        }
        // The last character goes whatever it is: normally the line end.
        const std::string_view line(buffer, std::strlen(buffer) - 1);
        if (const Statement* statement = findStatement(line)) {
            if (!carryOut(*statement, line, names, state, block)) {
                writeDiagnostic(standardOutput, "invalid state found!!!");
                break;
            }
        } else if (state == State::text) {
            if (block.game != nullptr) {
                block.store(line);
            }
            // An empty line behind each line of text belongs to the format, not to the text.
            if (!line.empty() && std::fgets(buffer, lineBufferSize, stream) == nullptr) {
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
    if (stream == nullptr) {
        settings.useMameInfoDat = 0;
        return 1;
    }
    parseGameInfo(stream);
    std::fclose(stream);
    return 1;
}
