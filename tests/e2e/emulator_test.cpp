// SPDX-License-Identifier: GPL-3.0-or-later
// Starting games: the emulator gets the screen and the focus, and the front end gets them back, whatever the
// emulator does.
#include "e2e/cabinet_fixture.h"

#include <csignal>
#include <filesystem>

namespace {

// Waits until the front end has the focus and shows the list again, without a message box.
bool backAtList(VirtualScreen& screen, const Screenshot& list) {
    return screen.waitForFocus(frontEndTitle, longTimeout) &&
           screen.waitFor([&](const Screenshot& shot) { return shot == list; }, longTimeout);
}

TEST_F(CabinetTest, AGameGetsAndReturnsScreenAndFocus) {
    generateList();
    // The options of a parent also apply to its clone.
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "fistetih"}}) + "fistetiq=-verbose\n");
    startFrontEnd();
    Screenshot list = waitForGameList();
    ASSERT_TRUE(startGame("Fists of Etiquette (pinky out)"));
    EXPECT_NE(screen->focusedProcess(), frontEnd->id());
    auto keyArrived = [&](const Screenshot&) { return output().find("key Z\n") != std::string::npos; };
    EXPECT_TRUE(screen->waitFor(keyArrived, stepTimeout)) << "the synthetic key press did not reach the game";

    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
    // As soon as it has the focus, the front end shows the list, below the message with the name of the game.
    EXPECT_GE(barTop(screen->capture()), 0);
    EXPECT_TRUE(backAtList(*screen, list));
    EXPECT_TRUE(frontEnd->running()) << "the Escape key of the game ended the front end";
    screen->tap("Up");
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot != list; }, stepTimeout));
    EXPECT_EQ(exitByKey(), 0);
    EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), "fistetih");
}

TEST_F(CabinetTest, ReportsAFailedGameAndReturnsToTheList) {
    generateList();
    auto withOptions = [](const char* options) {
        std::string ini = cabinetSettings({{"SelectedGame", "outorder"}});
        std::string entry = "outorder=-seconds 2 -exitcode 3";
        return ini.replace(ini.find(entry), entry.size(), std::string("outorder=") + options);
    };
    writeFile("kestravox.ini", withOptions("-seconds 0"));
    startFrontEnd();
    Screenshot list = waitForGameList();
    auto boxAfterGame = [&] {
        EXPECT_TRUE(startGame("Out of Order"));
        EXPECT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
        Screenshot box = screen->settled(100);
        EXPECT_NE(box, list);
        EXPECT_TRUE(backAtList(*screen, list));
        return box;
    };
    Screenshot afterGoodGame = boxAfterGame();
    // The options are read again for each game.
    writeFile("kestravox.ini", withOptions("-seconds 0 -exitcode 3"));
    EXPECT_NE(boxAfterGame(), afterGoodGame);
    EXPECT_EQ(exitByKey(), 0);
}

// Replaces the emulator. Writes its process id to the file "number" and ignores SIGTERM and SIGINT.
constexpr const char* unresponsiveEmulator =
    "trap '' TERM INT; echo $$ > \"${0%/*}/number\"; while :; do sleep 0.05; done";

TEST_F(CabinetTest, AShutdownDuringAnUnresponsiveGameSavesAtOnceAndEndsBoth) {
    generateList();
    writeSettings({{"Mame.exe", path("emulator")}, {"SelectedGame", "polittnk"}});
    writeScript("emulator", unresponsiveEmulator);
    startFrontEnd();
    Screenshot list = waitForGameList();
    screen->tap("Up");
    screen->waitFor([&](const Screenshot& shot) { return shot != list; }, stepTimeout);
    screen->tap("1");
    ASSERT_TRUE(waitForFile("number"));
    frontEnd->signal(SIGTERM);
    EXPECT_FALSE(frontEnd->waitForExit(700).has_value());
    EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), "polittnk")
        << "the settings are saved while the game still runs";
    EXPECT_EQ(frontEnd->waitForExit(6000), 0);
    EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
}

TEST_F(CabinetTest, ADisplayLossEndsFrontEndAndGameAndSaves) {
    // While the list is being generated, there is no first frame yet, so the settings are not saved.
    writeSettings({{"Mame.exe", path("emulator")}});
    writeScript("emulator", unresponsiveEmulator);
    std::string before = readFile("kestravox.ini");
    startFrontEnd();
    ASSERT_TRUE(waitForFile("number"));
    screen.reset();
    EXPECT_EQ(frontEnd->waitForExit(3000), 1);
    EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
    EXPECT_EQ(readFile("kestravox.ini"), before);
    EXPECT_EQ(readFile("listinfo.dat"), "");

    generateList();
    for (bool inGame : {false, true}) {
        startScreen();
        startFrontEnd();
        Screenshot list = waitForGameList();
        std::string previous = settingIn(readFile("kestravox.ini"), "SelectedGame");
        screen->tap("Down");
        screen->waitFor([&](const Screenshot& shot) { return shot != list; }, stepTimeout);
        std::filesystem::remove(path("number"));
        if (inGame) {
            screen->tap("1");
            ASSERT_TRUE(waitForFile("number"));
        }
        screen.reset();
        EXPECT_EQ(frontEnd->waitForExit(3000), 2);
        EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), previous);
        if (inGame) {
            EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
        }
    }
}

struct BadEmulator {
    const char* what;
    const char* script; // null: no such file
    bool isFolder;
    const char* message; // of the message box; null without one
};

// Each replaces the emulator for one launch.
constexpr BadEmulator badEmulators[] = {
    {"missing", nullptr, false, "Failed to execute ["},
    {"a folder", nullptr, true, "Failed to execute ["},
    {"ends at once", "exit 0", false, nullptr},
    {"dies from a signal", "kill -SEGV $$", false, nullptr},
    {"writes megabytes", "yes | head -c 8000000; yes | head -c 100000 >&2", false, nullptr},
};

TEST_F(CabinetTest, ReturnsToTheListAfterAnyEmulator) {
    generateList();
    writeSettings({{"Mame.exe", path("emulator")}, {"SelectedGame", "moonmop"}});
    startFrontEnd();
    Screenshot list = waitForGameList();
    for (const BadEmulator& bad : badEmulators) {
        SCOPED_TRACE(bad.what);
        std::filesystem::remove_all(path("emulator"));
        writeFile("output.txt", "");
        if (bad.isFolder) {
            std::filesystem::create_directory(path("emulator"));
        }
        if (bad.script) {
            writeScript("emulator", bad.script);
        }
        screen->tap("1");
        ASSERT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot != list; }, stepTimeout));
        if (bad.message) {
            screen->settled();
            EXPECT_NE(output().find(bad.message), std::string::npos);
            screen->tap("Return");
        }
        ASSERT_TRUE(backAtList(*screen, list));
        ASSERT_TRUE(frontEnd->running());
    }
    EXPECT_EQ(exitByKey(), 0);
}

struct BadListing {
    const char* what;
    const char* script; // null: no such file
};

constexpr BadListing badListings[] = {
    {"missing", nullptr},
    {"ends at once", "exit 0"},
    {"dies from a signal in mid-list", "echo '<mame><machine name=\"a\"><description>A'; kill -KILL $$"},
    {"junk instead of a list", "head -c 20000000 /dev/zero"},
};

TEST_F(CabinetTest, ReportsAnEmulatorWithoutAListAndKeepsTheSettings) {
    for (const BadListing& bad : badListings) {
        SCOPED_TRACE(bad.what);
        std::filesystem::remove_all(path("emulator"));
        std::filesystem::remove(path("listinfo.dat"));
        std::filesystem::remove(path("output.txt"));
        writeSettings({{"Mame.exe", path("emulator")}});
        if (bad.script) {
            writeScript("emulator", bad.script);
        }
        std::string before = readFile("kestravox.ini");
        startFrontEnd();
        EXPECT_EQ(answerBoxesUntilExit(), 1);
        EXPECT_NE(output().find("No games found!"), std::string::npos);
        EXPECT_EQ(output().find("Failed to execute [") != std::string::npos, bad.script == nullptr);
        EXPECT_EQ(readFile("kestravox.ini"), before);
    }
}

} // namespace
