// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/catalogue_loader.h"

#include "app/window_state.h"
#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "overlays/message_window.h"
#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/virtual_clock.h"
#include "platform/window.h"
#include "support/game_list.h"
#include "support/sdl_events.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

class CatalogueLoaderTest : public ::testing::Test {
protected:
    CatalogueLoaderTest() {
        setScreenSize(640, 480);
        static char face[] = "Arial";
        settings.fontFace = face;
        settings.fontSize = 12;
        settings.mameExe = emulator.data();
    }
    ~CatalogueLoaderTest() override {
        hideMessage();
        freeGameList();
    }

    void writeProgram(const char* name, const std::string& script) const {
        folder.write(name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder.pathOf(name), std::filesystem::perms::all);
    }

    // Closes each message box with a key press, one per second.
    static void dismissBoxes(int count) {
        for (int box = 1; box <= count; ++box) {
            virtualClockAt(virtualClockMilliseconds() + 1000 * box, [] { pressKey(SDL_SCANCODE_RETURN); });
            virtualClockAt(virtualClockMilliseconds() + 1000 * box + 100,
                           [] { releaseKey(SDL_SCANCODE_RETURN); });
        }
    }

    TemporaryFolder folder;
    std::string emulator = folder.pathOf("emulator");
};

TEST_F(CatalogueLoaderTest, ReadsAnExistingListWithoutRunningAProgram) {
    for (const auto& [list, names] : {std::pair{"game (\r\nname a\r\n)\r\ngame (\r\nname b\r\n)", "a b "},
                                      {"\xEF\xBB\xBFgame (\nname a\n)\n", "a "},
                                      {"", ""}}) {
        folder.write("listinfo.dat", list);
        EXPECT_EQ(loadGameList(), 1);
        EXPECT_EQ(namesOf(allGames, gameCount), names);
        EXPECT_EQ(gameIndex == nullptr, gameCount == 0);
    }
    EXPECT_FALSE(folder.has("listinfo.xml"));
}

// The converter in the folder of the test program takes precedence over the script, which writes the same
// list.
TEST_F(CatalogueLoaderTest, GeneratesAMissingList) {
    const std::string xml = R"(<mame><machine name="alpha"><description>Alpha</description>)"
                            R"(<manufacturer>M</manufacturer></machine></mame>)";
    writeProgram("emulator", "[ \"$*\" = -listxml ] && echo '" + xml + "'\n");
    writeProgram("xml2info", "grep -q alpha && printf 'game (\\nname alpha\\n)\\n'\n");
    EXPECT_EQ(loadGameList(), 1);
    EXPECT_EQ(namesOf(allGames, gameCount), "alpha ");
    EXPECT_EQ(folder.read("listinfo.xml"), xml + "\n");

    writeProgram("emulator", "echo changed\n");
    EXPECT_EQ(loadGameList(), 1);
    EXPECT_EQ(namesOf(allGames, gameCount), "alpha ") << "an existing list is not regenerated";
}

TEST_F(CatalogueLoaderTest, ReportsAnEmptyListWhenTheEmulatorWritesNone) {
    const struct {
        const char* script;
        int boxes;
        const char* reason;
    } emulators[] = {{"kill -9 $$\n", 0, "no whole game list. Delete listinfo.dat"},
                     {"", 0, "no whole game list. Delete listinfo.dat"},
                     {nullptr, 1, "emulator could not be run for its game list. Delete listinfo.dat"}};
    for (const auto& [script, boxes, reason] : emulators) {
        std::filesystem::remove("listinfo.dat");
        std::filesystem::remove("emulator");
        if (script) {
            writeProgram("emulator", script);
        }
        writeProgram("xml2info", "cat > /dev/null\n");
        dismissBoxes(boxes);
        testing::internal::CaptureStderr();
        EXPECT_EQ(loadGameList(), 1) << boxes;
        EXPECT_NE(testing::internal::GetCapturedStderr().find(reason), std::string::npos) << reason;
        EXPECT_EQ(gameCount, 0);
        EXPECT_TRUE(folder.has("listinfo.dat"));
    }
}

TEST_F(CatalogueLoaderTest, ShowsForSevenAndAHalfSecondsThatThereIsNoList) {
    writeProgram("emulator", "echo list\n");
    std::filesystem::create_directory("listinfo.dat");
    dismissBoxes(1);
    const std::int64_t start = virtualClockMilliseconds();
    EXPECT_EQ(loadGameList(), 0);
    EXPECT_GE(virtualClockMilliseconds() - start, 7500);
    EXPECT_EQ(gameCount, 0);
}

TEST_F(CatalogueLoaderTest, LeavesNoListAfterAShutdownRequest) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "Main";
    RegisterClassA(&windowClass);
    mainWindow = CreateWindowExA(0, "Main", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    writeProgram("emulator", "kill -TERM $PPID; sleep 20");
    EXPECT_EQ(loadGameList(), 0);
    EXPECT_FALSE(folder.has("listinfo.dat"));
    EXPECT_LT(virtualClockMilliseconds(), 1000) << "no message delays the shutdown";
}

} // namespace
