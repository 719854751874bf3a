// Games and their emulator: the screen and the keyboard go there and come back, whatever the emulator does.
#include "e2e/cabinet_fixture.h"

#include <csignal>
#include <filesystem>

namespace {

// The front end is back when the keyboard is its own and the picture is the list again, without a box over
// it.
bool backAtList(VirtualScreen& screen, const Screenshot& list) {
    return screen.waitForFocus(FrontEndTitle, LongLimit) &&
           screen.waitFor([&](const Screenshot& shot) { return shot == list; }, LongLimit);
}

TEST_F(CabinetTest, AGameHasTheScreenAndTheKeysAndGivesBothBack) {
    makeList();
    // The entry of a parent counts for its clone.
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "fistetih"}}) + "fistetiq=-verbose\n");
    startFrontEnd();
    Screenshot list = waitForList();
    ASSERT_TRUE(startGame("Fists of Etiquette (pinky out)"));
    EXPECT_NE(screen->focusedProcess(), frontEnd->id());
    auto keyArrived = [&](const Screenshot&) { return output().find("key Z\n") != std::string::npos; };
    EXPECT_TRUE(screen->waitFor(keyArrived, StepLimit)) << "the key that every game gets did not reach it";

    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
    // With the focus the picture is back, under the box that still names the game.
    EXPECT_GE(barTop(screen->capture()), 0);
    EXPECT_TRUE(backAtList(*screen, list));
    EXPECT_TRUE(frontEnd->running()) << "the game's Escape ended the front end";
    screen->tap("Up");
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot != list; }, StepLimit));
    EXPECT_EQ(leave(), 0);
    EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), "fistetih");
}

TEST_F(CabinetTest, AFailedGameIsToldAndTheListComesBack) {
    makeList();
    auto withOptions = [](const char* options) {
        std::string ini = cabinetSettings({{"SelectedGame", "outorder"}});
        std::string entry = "outorder=-seconds 2 -exitcode 3";
        return ini.replace(ini.find(entry), entry.size(), std::string("outorder=") + options);
    };
    writeFile("kestravox.ini", withOptions("-seconds 0"));
    startFrontEnd();
    Screenshot list = waitForList();
    auto boxAfterGame = [&] {
        EXPECT_TRUE(startGame("Out of Order"));
        EXPECT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
        Screenshot box = screen->settled(100);
        EXPECT_NE(box, list);
        EXPECT_TRUE(backAtList(*screen, list));
        return box;
    };
    Screenshot afterGoodGame = boxAfterGame();
    // The options are read anew for each game.
    writeFile("kestravox.ini", withOptions("-seconds 0 -exitcode 3"));
    EXPECT_NE(boxAfterGame(), afterGoodGame);
    EXPECT_EQ(leave(), 0);
}

// Stands in for the emulator and notes its process number; it cannot be ended politely.
constexpr const char* DeafEmulator =
    "trap '' TERM INT; echo $$ > \"${0%/*}/number\"; while :; do sleep 0.05; done";

TEST_F(CabinetTest, AShutdownDuringADeafGameSavesAtOnceAndEndsBoth) {
    makeList();
    writeSettings({{"Mame.exe", path("emulator")}, {"SelectedGame", "polittnk"}});
    writeScript("emulator", DeafEmulator);
    startFrontEnd();
    Screenshot list = waitForList();
    screen->tap("Up");
    screen->waitFor([&](const Screenshot& shot) { return shot != list; }, StepLimit);
    screen->tap("1");
    ASSERT_TRUE(waitForFile("number"));
    frontEnd->signal(SIGTERM);
    EXPECT_FALSE(frontEnd->waitForExit(700).has_value());
    EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), "polittnk")
        << "saved while the game goes on";
    EXPECT_EQ(frontEnd->waitForExit(6000), 0);
    EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
}

TEST_F(CabinetTest, TheLossOfTheDisplayEndsEverythingAndLosesNothing) {
    // While the list is being made nothing has been shown and nothing is saved.
    writeSettings({{"Mame.exe", path("emulator")}});
    writeScript("emulator", DeafEmulator);
    std::string before = readFile("kestravox.ini");
    startFrontEnd();
    ASSERT_TRUE(waitForFile("number"));
    screen.reset();
    EXPECT_EQ(frontEnd->waitForExit(3000), 1);
    EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
    EXPECT_EQ(readFile("kestravox.ini"), before);
    EXPECT_EQ(readFile("listinfo.dat"), "");

    makeList();
    for (bool inGame : {false, true}) {
        startScreen();
        startFrontEnd();
        Screenshot list = waitForList();
        std::string former = settingIn(readFile("kestravox.ini"), "SelectedGame");
        screen->tap("Down");
        screen->waitFor([&](const Screenshot& shot) { return shot != list; }, StepLimit);
        std::filesystem::remove(path("number"));
        if (inGame) {
            screen->tap("1");
            ASSERT_TRUE(waitForFile("number"));
        }
        screen.reset();
        EXPECT_EQ(frontEnd->waitForExit(3000), 2);
        EXPECT_NE(settingIn(readFile("kestravox.ini"), "SelectedGame"), former);
        if (inGame) {
            EXPECT_NE(kill(std::stoi(readFile("number")), 0), 0);
        }
    }
}

struct BadEmulator {
    const char* what;
    const char* script; // null: no such file
    bool isFolder;
    const char* words; // in a box, or null
};

// Each stands in the emulator's place for one launch.
constexpr BadEmulator BadEmulators[] = {
    {"missing", nullptr, false, "Failed to execute ["},
    {"a folder", nullptr, true, "Failed to execute ["},
    {"ends at once", "exit 0", false, nullptr},
    {"dies from a signal", "kill -SEGV $$", false, nullptr},
    {"writes megabytes", "yes | head -c 8000000; yes | head -c 100000 >&2", false, nullptr},
};

TEST_F(CabinetTest, NoEmulatorCanKeepTheListFromComingBack) {
    makeList();
    writeSettings({{"Mame.exe", path("emulator")}, {"SelectedGame", "moonmop"}});
    startFrontEnd();
    Screenshot list = waitForList();
    for (const BadEmulator& bad : BadEmulators) {
        SCOPED_TRACE(bad.what);
        std::filesystem::remove_all(path("emulator"));
        writeFile("output.txt", "");
        if (bad.isFolder)
            std::filesystem::create_directory(path("emulator"));
        if (bad.script != nullptr)
            writeScript("emulator", bad.script);
        screen->tap("1");
        ASSERT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot != list; }, StepLimit));
        if (bad.words != nullptr) {
            screen->settled();
            EXPECT_NE(output().find(bad.words), std::string::npos);
            screen->tap("Return");
        }
        ASSERT_TRUE(backAtList(*screen, list));
        ASSERT_TRUE(frontEnd->running());
    }
    EXPECT_EQ(leave(), 0);
}

struct BadListing {
    const char* what;
    const char* script; // null: no such file
};

constexpr BadListing BadListings[] = {
    {"missing", nullptr},
    {"ends at once", "exit 0"},
    {"dies from a signal in mid-list", "echo '<mame><machine name=\"a\"><description>A'; kill -KILL $$"},
    {"junk instead of a list", "head -c 20000000 /dev/zero"},
};

TEST_F(CabinetTest, AnEmulatorWithoutAListIsToldAndLosesNothing) {
    for (const BadListing& bad : BadListings) {
        SCOPED_TRACE(bad.what);
        std::filesystem::remove_all(path("emulator"));
        std::filesystem::remove(path("listinfo.dat"));
        std::filesystem::remove(path("output.txt"));
        writeSettings({{"Mame.exe", path("emulator")}});
        if (bad.script != nullptr)
            writeScript("emulator", bad.script);
        std::string before = readFile("kestravox.ini");
        startFrontEnd();
        EXPECT_EQ(answerBoxesUntilExit(), 1);
        EXPECT_NE(output().find("No games found!"), std::string::npos);
        EXPECT_EQ(output().find("Failed to execute [") != std::string::npos, bad.script == nullptr);
        EXPECT_EQ(readFile("kestravox.ini"), before);
    }
}

} // namespace
