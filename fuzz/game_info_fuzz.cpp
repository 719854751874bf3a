// SPDX-License-Identifier: GPL-3.0-or-later
// The game information file: the lines are attached to three games, each shorter than the reader's buffer.
#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "platform/text_file.h"
#include "support/default_settings.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"

#include <cstring>

namespace {

void readGames() {
    writeScratchFile("listinfo.dat", "game (\nname a\n)\ngame (\nname b\n)\nresource (\nname pac\n)\n");
    FILE* file = openTextFile("listinfo.dat");
    readGameList(file);
    std::fclose(file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    useDefaultSettings();
    FuzzInput input(data, size);
    if (gameCount == 0 || input.number(0, 63) == 1) {
        freeGameList();
        readGames();
    }
    writeScratchFile("gameinfo.dat", input.rest());
    settings.useMameInfoDat = 1;
    require(loadGameInfo("gameinfo.dat") == 1 && settings.useMameInfoDat == 1);
    for (std::int32_t game = 0; game < gameCount; ++game) {
        const GameRecord& record = *allGames[game];
        require((record.infoLineCount > 0) == (record.infoLines != nullptr));
        for (std::int32_t line = 0; line < record.infoLineCount; ++line) {
            require(std::strlen(record.infoLines[line]) < 1023 && !std::strchr(record.infoLines[line], '\n'));
        }
    }
    return 0;
}
