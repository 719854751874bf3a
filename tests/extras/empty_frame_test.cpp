// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/empty_frame.h"

#include "catalogue/game_catalogue.h"
#include "platform/key_codes.h"
#include "render/primitives.h"
#include "support/frame_test.h"

#include <cstdlib>
#include <cstring>

namespace {

using EmptyFrameTest = FrameTest;

TEST_F(EmptyFrameTest, SaysWhyItIsEmptyAndWhatOpensTheOptions) {
    const struct {
        int games;
        int resources;
        int roms; // number of games, or else resources, with a ROM
        int displayMissingRoms;
        int allowMenu;
        int key;
        int button; // 0: no joystick
        const char* reason;
        const char* way; // null: not shown
    } rows[] = {
        {3, 2, 0, 0, 1, '2', 0, "None of the 3 games has a ROM in some/roms.",
         "Press 2 to open the options."},
        {1, 0, 0, 0, 1, VK_F1, 32, "The only game has no ROM in some/roms.",
         "Press F1 or Button 6 to open the options."},
        {3, 0, 1, 0, 1, VK_SPACE, 0, "The options hide all 3 games.", "Press Space to open the options."},
        {3, 0, 0, 1, 1, 0, 1, "The options hide all 3 games.", "Press Button 1 to open the options."},
        {1, 0, 1, 0, 1, VK_NUMPAD0 + 5, 200, "The options hide the only game.",
         "Press Keypad 5 or Stick right to open the options."},
        {3, 0, 1, 0, 0, '2', 32, "The options hide all 3 games.", nullptr},
        {0, 2, 2, 0, 1, 255, 3, "The game list contains no games.", nullptr},
    };
    std::free(settings.romsDir);
    settings.romsDir = strdup("some/roms");
    settings.fontSize = 10;
    for (const auto& row : rows) {
        setGames(static_cast<std::size_t>(row.games + row.resources));
        for (int game = 0; game < row.games + row.resources; ++game) {
            records[static_cast<std::size_t>(game)].isResource = game < row.games ? 0 : 1;
            records[static_cast<std::size_t>(game)].romPresent = game < row.roms ? 1 : 0;
        }
        allGames = visibleGames;
        gameCount = visibleCount;
        settings.displayMissingRoms = row.displayMissingRoms;
        settings.allowMenu = row.allowMenu;
        settings.keyShowMenu = row.key;
        settings.useJoystick = row.button != 0 ? 1 : 0;
        settings.joyShowMenu = row.button;
        for (const std::int32_t rotation : {0, 90, -90, 180}) {
            settings.orientation = rotation;
            drawEmptyFrame(dc, {width, height});
            const std::vector<std::uint32_t> drawn(pixelRow(dc, 0), pixelRow(dc, 0) + width * height);
            std::vector<const char*> lines = {"No games to show", "", row.reason};
            if (row.way) {
                lines.insert(lines.end(), {"", row.way});
            }
            const RECT frame{0, 0, width, height};
            fillRect(dc, frame, paper);
            const LONG line = textHeight(dc);
            const LONG cx = isQuarterTurn(rotation) ? height : width;
            const LONG cy = isQuarterTurn(rotation) ? width : height;
            LONG top = (cy - static_cast<LONG>(lines.size()) * line) / 2;
            for (const char* text : lines) {
                drawText(dc, textOrigin(frame, (cx - textWidth(dc, text)) / 2, top), text);
                top += line;
            }
            EXPECT_TRUE(std::equal(drawn.begin(), drawn.end(), pixelRow(dc, 0))) << row.reason << rotation;
        }
    }
    allGames = nullptr;
    gameCount = 0;
    gameCount = 0;
}

TEST_F(EmptyFrameTest, FitsAnyFrame) {
    std::free(settings.romsDir);
    settings.romsDir = strdup((std::string(400, 'x') + "/a folder with blanks in its name").c_str());
    allGames = visibleGames;
    gameCount = visibleCount;
    settings.fontSize = 36;
    for (const std::int32_t rotation : {0, 90, -90, 180}) {
        settings.orientation = rotation;
        drawEmptyFrame(dc, {width, height});
        const RECT ink = extentOf(settings.fontColor);
        EXPECT_TRUE(contains({5, 5, width - 5, height - 5}, ink)) << rotation << ": " << ink;
    }
    resizeFrame(1, 1);
    drawEmptyFrame(dc, {1, 1});
    allGames = nullptr;
    gameCount = 0;
    gameCount = 0;
}

} // namespace
