// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_state.h"
#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "core/catalogue_loader.h"
#include "platform/test_access.h"
#include "support/game_list.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* xml =
    "echo '<mame><machine name=\"fresh\"><description>F</description></machine></mame>'";
constexpr const char* oldList = "game (\r\nname old\r\n)\r\n";

class RefreshListTest : public ::testing::Test {
protected:
    RefreshListTest() {
        setScreenSize(640, 480);
        static char face[] = "Arial";
        settings.fontFace = face;
        settings.fontSize = 12;
        settings.mameExe = commandLine.data();
        settings.refreshList = 1;
        // Used when the real converter is not in the folder of the test program.
        writeProgram("xml2info", "grep -q 'fresh.*/mame' || exit 1\nprintf 'game (\\nname fresh\\n)\\n'");
    }
    ~RefreshListTest() override { freeGameList(); }

    void writeProgram(const char* name, const std::string& script) const {
        folder.write(name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(folder.pathOf(name), std::filesystem::perms::all);
    }

    // An emulator in a path with a blank; counts its runs in the file "runs".
    void writeEmulator(const std::string& script) const {
        std::filesystem::create_directory("my mame");
        writeProgram("my mame/emulator", "echo \"$*\" >> '" + folder.pathOf("runs") + "'\n" + script);
    }

    // Returns the names in the list after a start.
    static std::string load() {
        loadGameList();
        return namesOf(allGames, gameCount);
    }

    TemporaryFolder folder;
    std::string commandLine = folder.pathOf("my mame/emulator") + " -norc";
};

TEST_F(RefreshListTest, MakesTheListAnewWhenListOrEmulatorAskForIt) {
    writeEmulator(xml);
    folder.write("listinfo.dat", oldList);
    std::string runs;
    const struct {
        const char* what;
        std::function<void()> change;
        bool runs;
    } starts[] = {
        {"no stamp", [] {}, true},
        {"nothing changed", [] {}, false},
        {"missing", [] { std::filesystem::remove("listinfo.dat"); }, true},
        {"empty", [&] { folder.write("listinfo.dat", ""); }, true},
        {"blank", [&] { folder.write("listinfo.dat", "\n \n"); }, true},
        {"cut off", [&] { folder.write("listinfo.dat", "game (\nname a\nvideo ( screen raster )\n"); }, true},
        {"blanks at the end", [&] { folder.write("listinfo.dat", "game (\nname fresh\n\t) \r\n \n"); },
         false},
        {"larger", [&] { writeEmulator(std::string(xml) + "\n#"); }, true},
        {"touched", [] { std::filesystem::last_write_time("my mame/emulator", {}); }, true},
        {"all times but one kept",
         [] { std::filesystem::permissions("my mame/emulator", std::filesystem::perms::owner_all); }, true},
    };
    for (const auto& start : starts) {
        start.change();
        runs += start.runs ? "-norc -listxml\n" : "";
        EXPECT_EQ(load(), "fresh ") << start.what;
        EXPECT_EQ(folder.read("runs"), runs) << start.what;
        EXPECT_FALSE(folder.has("listinfo.xml") || folder.has("listinfo.new"));
    }
}

TEST_F(RefreshListTest, AFailureKeepsTheListAndIsTriedOnceAStart) {
    const struct {
        const char* what;
        std::string script; // empty: no emulator
        const char* reason;
    } rows[] = {
        {"none", "", "the emulator was not found"},
        {"exit code", std::string(xml) + "; exit 1", "the emulator did not write its game list"},
        {"killed", std::string(xml) + "; kill -9 $$", "the emulator did not write its game list"},
        {"nothing written", ":", "what the emulator wrote is no whole game list"},
        {"partial", "echo '<mame><machine name=\"a\">'", "what the emulator wrote is no whole game list"},
        {"no games", "echo '<mame></mame>'", "what the emulator wrote is no whole game list"},
    };
    for (const auto& row : rows) {
        for (const std::string list : {oldList, ""}) {
            std::filesystem::remove("runs");
            std::filesystem::remove("listinfo.dat");
            if (!list.empty()) {
                folder.write("listinfo.dat", list);
            }
            if (!row.script.empty()) {
                writeEmulator(row.script);
            }
            testing::internal::CaptureStderr();
            EXPECT_EQ(load(), list.empty() ? "" : "old ") << row.what;
            EXPECT_EQ(testing::internal::GetCapturedStderr(),
                      std::string("The game list was not made anew: ") + row.reason + ".\n");
            EXPECT_EQ(folder.read("listinfo.dat"), list);
            EXPECT_EQ(folder.read("runs"), row.script.empty() ? "" : "-norc -listxml\n");
            EXPECT_FALSE(folder.has("listinfo.stamp"));
        }
    }
}

TEST_F(RefreshListTest, AnEndRequestKeepsTheList) {
    writeEmulator("kill -TERM $PPID; sleep 0.2; " + std::string(xml));
    folder.write("listinfo.dat", oldList);
    EXPECT_EQ(load(), "old ");
    EXPECT_FALSE(folder.has("listinfo.stamp"));
}

} // namespace
