// SPDX-License-Identifier: GPL-3.0-or-later
#include "scenario/recorded_media.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string game(const std::string& name, const std::string& title, int year, const std::string& maker) {
    return "game (\n\tname " + name + "\n\tdescription \"" + title + "\"\n\tyear " + std::to_string(year) +
           "\n\tmanufacturer \"" + maker + "\"\n)\n";
}

TEST(LetterJump, GoesToTheFirstGameOfTheNextOrPreviousGroup) {
    FrontEnd frontEnd;
    // In the order of their titles: capitals precede small letters, and accented letters follow.
    frontEnd.folder().write("listinfo.dat",
                            game("a", "1941", 2000, "Acme") + game("b", "88", 2001, "Zeta") +
                                game("c", "Aero", 2001, "acme") + game("d", "Zed", 2003, "Acme") +
                                game("e", "[x]", 2003, "Acme") + game("f", "aero", 2003, "Zeta") +
                                game("g", "zed", 2003, "Zeta") + game("h", "\xC9t", 2004, "Zeta") +
                                game("i", "\xE9t", 2004, "Zeta") + game("j", "\xF7", 2004, "Zeta"));
    frontEnd.set("Extras", "NextLetterKey", "78");
    frontEnd.set("Extras", "PreviousLetterKey", "80");
    frontEnd.set("Sounds", "Select", "Select");
    frontEnd.set("Sounds", "Error", "Error");
    const struct {
        const char* order;
        const char* start;
        int startIndex;
        std::vector<int> forward;
        std::vector<int> back;
    } rows[] = {
        {"Name", "a", 0, {2, 3, 4, 5, 6, 7, 9, 9}, {7, 6, 5, 4, 3, 2, 0, 0}},
        {"Name", "i", 8, {9, 9}, {7, 6}},
        {"Name", "b", 1, {2}, {0, 0}},
        {"Year", "a", 0, {1, 3, 7, 7}, {3, 1, 0, 0}},
        {"Manufacturer", "d", 1, {3, 9, 9}, {3, 0, 0}},
    };
    for (const auto& row : rows) {
        frontEnd.restart();
        mediaRequests.clear();
        frontEnd.set("RomOptions", "SortBy", row.order);
        frontEnd.set("System", "SelectedGame", row.start);
        std::int64_t time = 150;
        int before = row.startIndex;
        const auto press = [&](SDL_Scancode key, const std::vector<int>& expected) {
            for (const int index : expected) {
                const char* sound = index == before ? "Error" : "Select";
                frontEnd.at(time, [] { mediaRequests.clear(); });
                frontEnd.tap(time, key);
                frontEnd.at(time + 90, [=, &row] {
                    EXPECT_EQ(selectedIndex, index) << row.order << " " << row.start << " " << time;
                    ASSERT_EQ(mediaRequests.size(), 1U);
                    EXPECT_EQ(mediaRequests[0].what, sound) << row.order << " " << row.start << " " << time;
                });
                before = index;
                time += 100;
            }
        };
        press(SDL_SCANCODE_N, row.forward);
        press(SDL_SCANCODE_P, row.back);
        EXPECT_EQ(frontEnd.run(time), 0);
    }
}

} // namespace
