#include "support/front_end.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Returns the screen with the information of a game; empty when the scroller has not opened.
std::vector<std::uint32_t> informationOf(FrontEnd& frontEnd, const char* game) {
    std::vector<std::uint32_t> pixels;
    frontEnd.restart();
    frontEnd.set("System", "SelectedGame", game);
    frontEnd.set("Settings", "InvertPlayer2Screen", "1");
    frontEnd.tap(150, SDL_SCANCODE_LCTRL);
    frontEnd.at(290, [&] {
        const ScreenPixels screen = screenPixels();
        pixels.assign(screen.pixels, screen.pixels + screen.stride * screen.height);
    });
    frontEnd.tap(350, SDL_SCANCODE_F); // player 2 scrolls, so the text is rotated
    frontEnd.at(490, [&] {
        if (settings.orientation == 0) {
            pixels.clear();
        }
    });
    frontEnd.tap(550, SDL_SCANCODE_Q);
    EXPECT_EQ(frontEnd.run(2500), 0);
    return pixels;
}

// The file of each row shows the same as the information file that has all its lines.
TEST(ExtrasHistory, FollowsTheGameInformation) {
    const struct {
        const char* what;
        const char* game;
        const char* info; // null: no file
        const char* useInfo;
        const char* history;
        const char* shown; // null: nothing
    } rows[] = {
        {"both", "a", "$info=a\n$mame\nText\n\n$end\n", "1", "a", "Text\n\n\nHistory of a\n\n"},
        {"no information", "a", "$info=z\n$mame\nText\n\n$end\n", "1", "a", "History of a\n\n"},
        {"no information file", "a", nullptr, "1", "a", "History of a\n\n"},
        {"information off", "a", "$info=a\n$mame\nText\n\n$end\n", "0", "a", "History of a\n\n"},
        {"no history", "a", "$info=a\n$mame\nText\n\n$end\n", "1", "c", "Text\n\n"},
        {"neither", "a", "", "1", "c", nullptr},
        {"own history, parent's information", "b", "$info=a\n$mame\nText\n\n$end\n", "1", "b",
         "Text\n\n\nHistory of b\n\n"},
        {"own information, parent's history", "b", "$info=b\n$mame\nText\n\n$end\n", "1", "a",
         "Text\n\n\nHistory of a\n\n"},
        {"parent not in the list", "c", "", "1", "zzz", nullptr},
    };
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.folder().write("listinfo.dat", FrontEnd::listEntry("a") +
                                                    FrontEnd::listEntry("b", "\tcloneof a\n") +
                                                    FrontEnd::listEntry("c", "\tcloneof zzz\n"));
        std::vector<std::uint32_t> expected;
        if (row.shown) {
            frontEnd.folder().write("mameinfo.dat",
                                    "$info=" + std::string(row.game) + "\n$mame\n" + row.shown + "$end\n");
            expected = informationOf(frontEnd, row.game);
            ASSERT_FALSE(expected.empty());
            std::filesystem::remove("mameinfo.dat");
        }
        if (row.info) {
            frontEnd.folder().write("mameinfo.dat", row.info);
        }
        const std::string name = row.history;
        frontEnd.folder().write("history.xml", "<history><entry><systems><system name=\"" + name +
                                                   "\"/></systems><text>\nHistory of " + name +
                                                   "\n</text></entry></history>");
        frontEnd.set("Settings", "UseMameInfoDat", row.useInfo);
        frontEnd.set("Extras", "History.xml", "history.xml");
        EXPECT_EQ(informationOf(frontEnd, row.game) == expected, true) << row.what;
    }
}

} // namespace
