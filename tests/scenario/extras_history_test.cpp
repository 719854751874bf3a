// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Returns the screen 90 ms after the tick that shows the information of a game, or the message instead.
std::vector<std::uint32_t> informationOf(FrontEnd& frontEnd, const char* game) {
    std::vector<std::uint32_t> pixels;
    frontEnd.restart();
    frontEnd.set("System", "SelectedGame", game);
    frontEnd.tap(150, SDL_SCANCODE_LCTRL);
    frontEnd.at(290, [&] {
        const ScreenPixels screen = screenPixels();
        pixels.assign(screen.pixels, screen.pixels + screen.stride * screen.height);
    });
    frontEnd.tap(350, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(frontEnd.run(2500), 0);
    return pixels;
}

// Each row shows the same as an information file that has all its lines.
TEST(ExtrasHistory, FollowsTheGameInformation) {
    const char* const info = "$info=a\n$mame\nText\n\n$end\n";
    const struct {
        const char* what;
        const char* game;
        const char* info; // null: no file
        const char* useInfo;
        std::string history; // the system that has one
        const char* shown;   // empty: the message that there is nothing
    } rows[] = {
        {"both", "a", info, "1", "a", "Text\n\n\nHistory of a\n\n"},
        {"no information", "a", "", "1", "a", "History of a\n\n"},
        {"no information file", "a", nullptr, "1", "a", "History of a\n\n"},
        {"information off", "a", info, "0", "a", "History of a\n\n"},
        {"no history", "a", info, "1", "c", "Text\n\n"},
        {"neither", "a", "", "1", "c", ""},
        {"clone's history", "b", info, "1", "b", "Text\n\n\nHistory of b\n\n"},
        {"parent's history", "b", "$info=b\n$mame\nText\n\n$end\n", "1", "a", "Text\n\n\nHistory of a\n\n"},
        {"parent not in the list", "c", "", "1", "zzz", ""},
    };
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.folder().write("listinfo.dat", FrontEnd::listEntry("a") +
                                                    FrontEnd::listEntry("b", "\tcloneof a\n") +
                                                    FrontEnd::listEntry("c", "\tcloneof zzz\n"));
        frontEnd.folder().write("mameinfo.dat",
                                "$info=" + std::string(row.game) + "\n$mame\n" + row.shown + "$end\n");
        const std::vector<std::uint32_t> expected = informationOf(frontEnd, row.game);
        std::filesystem::remove("mameinfo.dat");
        if (row.info) {
            frontEnd.folder().write("mameinfo.dat", row.info);
        }
        frontEnd.folder().write("history.xml", "<history><entry><systems><system name=\"" + row.history +
                                                   "\"/></systems><text>\nHistory of " + row.history +
                                                   "\n</text></entry></history>");
        frontEnd.set("Settings", "UseMameInfoDat", row.useInfo);
        frontEnd.set("Extras", "History.xml", "history.xml");
        EXPECT_TRUE(informationOf(frontEnd, row.game) == expected) << row.what;
    }
}

} // namespace
