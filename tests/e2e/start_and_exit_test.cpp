// The front end from its first start to its end, in a process of its own.
#include "e2e/cabinet_fixture.h"

#include "games.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

// A window of another program, which takes the keyboard focus and ends with the object.
class ForeignWindow {
public:
    ForeignWindow(const VirtualScreen& screen, int focusAfterwards)
        : connection(XOpenDisplay(screen.environment().substr(std::string("DISPLAY=").size()).c_str())),
          window(XCreateSimpleWindow(connection, DefaultRootWindow(connection), 0, 0, 10, 10, 0, 0, 0)) {
        XStoreName(connection, window, title);
        XMapWindow(connection, window);
        XSetInputFocus(connection, window, focusAfterwards, CurrentTime);
        XSync(connection, False);
    }
    ~ForeignWindow() {
        if (isManager)
            XDeleteProperty(connection, DefaultRootWindow(connection), managerProperty());
        XCloseDisplay(connection);
    }
    ForeignWindow(const ForeignWindow&) = delete;
    ForeignWindow& operator=(const ForeignWindow&) = delete;

    // Does nothing else of what a window manager does.
    void claimToBeWindowManager() {
        isManager = true;
        XChangeProperty(connection, DefaultRootWindow(connection), managerProperty(), XA_WINDOW, 32,
                        PropModeReplace, reinterpret_cast<unsigned char*>(&window), 1);
        XSync(connection, False);
    }

    static constexpr const char* title = "Foreign";

private:
    Atom managerProperty() const { return XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", False); }

    Display* connection;
    Window window;
    bool isManager = false;
};

TEST_F(CabinetTest, TheFirstStartMakesTheListAndTheKeysMoveTheSelection) {
    startFrontEnd();
    Screenshot first = waitForList();
    std::string list = readFile("listinfo.dat");
    auto hidden = std::ranges::count_if(demoGames(), [](const DemoGame& game) {
        return game.kind != DemoKind::Game && game.kind != DemoKind::Mechanical;
    });
    EXPECT_EQ(countOf(list, "resource ("), hidden);
    EXPECT_EQ(countOf(list, "game ("), static_cast<int>(demoGames().size()) - hidden);

    ASSERT_TRUE(screen->tap("Down"));
    ASSERT_TRUE(
        screen->waitFor([&](const Screenshot& shot) { return barTop(shot) > barTop(first); }, StepLimit));
    Screenshot second = screen->settled();
    // Two lines of the list and the foot of the screen change, the place of the marquee above stays as it
    // was.
    EXPECT_EQ(second.countDifferences(first, {0, 0, second.width, barTop(first)}), 0);
    EXPECT_GT(second.countDifferences(first, {0, second.height - 40, second.width, second.height}), 0);

    ASSERT_TRUE(screen->tap("Up"));
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot == first; }, StepLimit));
    screen->tap("x"); // a hundred forward: the last game
    screen->settled();
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(settingIn(readFile("kestravox.ini"), "SelectedGame"), shownGames().back());
}

TEST_F(CabinetTest, ATerminationSavesTheSettingsAndKeepsEveryOtherLine) {
    makeList();
    writeSettings({{"Orientation", "Inverted"}});
    std::string before = readFile("kestravox.ini");
    startFrontEnd();
    screen->waitForFocus(FrontEndTitle, StepLimit);
    Screenshot shot = screen->settled();
    screen->tap("Down");
    ASSERT_TRUE(screen->waitFor([&](const Screenshot& later) { return later != shot; }, StepLimit));
    frontEnd->signal(SIGTERM);
    EXPECT_EQ(frontEnd->waitForExit(StepLimit), 0);
    std::string after = readFile("kestravox.ini");
    std::vector<std::string> games = shownGames();
    EXPECT_EQ(settingIn(after, "SelectedGame"),
              *(std::ranges::find(games, settingIn(before, "SelectedGame")) + 1));
    EXPECT_EQ(settingIn(after, "Orientation"), "Inverted");
    for (const char* kept :
         {"; crimson bar\n", "Roms.dir=roms\n", "SortBy=Name\n", "outorder=-seconds 2 -exitcode 3\n"})
        EXPECT_EQ(countOf(after, kept), countOf(before, kept)) << kept;
}

TEST_F(CabinetTest, WithoutUsableSettingsItStartsWithItsDefaults) {
    makeList();
    std::filesystem::create_directory(path("folder.ini"));
    writeFile("junk.ini",
              std::string("\0\xFF[Settings\nFontsize", 20) + std::string(100000, 'A') + "=\n\x01");
    for (const char* ini : {"missing.ini", "folder.ini", "junk.ini"}) {
        SCOPED_TRACE(ini);
        startFrontEnd({ini});
        // No ROM folder is configured, so nothing is to be seen but the white background.
        EXPECT_TRUE(
            screen->waitFor([](const Screenshot& shot) { return shot.at(640, 512) == 0xFFFFFF; }, StepLimit));
        ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
        EXPECT_EQ(leave(), 0);
    }
    EXPECT_EQ(settingIn(readFile("missing.ini"), "MenuType"), "ListView");
    EXPECT_TRUE(std::filesystem::is_directory(path("folder.ini")));
    EXPECT_NE(readFile("junk.ini").find(std::string(100000, 'A')), std::string::npos);
}

TEST_F(CabinetTest, TheKeyboardComesBackFromAWindowThatHasGoneAndIsLeftToAnyOther) {
    makeList();
    writeScript("emulator", "sleep 3");
    writeSettings({{"Mame.exe", path("emulator")}});
    startFrontEnd();
    waitForList();
    constexpr int lookAgain = 1300; // more than two of the front end's own looks
    for (int focusAfterwards : {RevertToNone, RevertToPointerRoot, RevertToParent}) {
        {
            ForeignWindow window(*screen, focusAfterwards);
            EXPECT_FALSE(screen->waitForFocus(FrontEndTitle, lookAgain)) << "a living window lost the focus";
            EXPECT_EQ(screen->focusedTitle(), ForeignWindow::title);
        }
        ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit)) << focusAfterwards;
        Screenshot shot = screen->settled();
        screen->tap("Down");
        EXPECT_TRUE(screen->waitFor([&](const Screenshot& later) { return later != shot; }, StepLimit));
    }
    {
        ForeignWindow manager(*screen, RevertToNone);
        manager.claimToBeWindowManager();
        { ForeignWindow window(*screen, RevertToNone); }
        EXPECT_FALSE(screen->waitForFocus(FrontEndTitle, lookAgain)) << "a window manager's business";
    }
    ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
    Screenshot list = screen->settled();
    screen->tap("1");
    screen->settled();
    { ForeignWindow window(*screen, RevertToNone); }
    EXPECT_FALSE(screen->waitForFocus(FrontEndTitle, lookAgain)) << "the keyboard is the game's";
    EXPECT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot == list; }, StepLimit));
    EXPECT_EQ(leave(), 0);
}

TEST_F(CabinetTest, AFullDiskCostsNeitherTheSettingsNorTheProgram) {
    writeSettings({});
    std::string before = readFile("kestravox.ini");
    startFrontEnd({}, 512); // no file can grow beyond that, the list not either
    EXPECT_EQ(answerBoxesUntilExit(), 1);
    EXPECT_EQ(readFile("kestravox.ini"), before);

    makeList();
    startFrontEnd({}, 512);
    waitForList();
    screen->tap("Down");
    screen->settled();
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(readFile("kestravox.ini"), before);
}

// The information file and the configuration of the fonts are odd, so that both the program and a library
// have something to print.
TEST_F(CabinetTest, StreamsThatNobodyReadsHoldNothingUp) {
    makeList();
    writeFile("mameinfo.dat", "$end\n");
    writeFile("fonts.conf", "<fontconfig><unknown/><include>/etc/fonts/fonts.conf</include></fontconfig>\n");
    setenv("FONTCONFIG_FILE", path("fonts.conf").c_str(), 1);
    ASSERT_EQ(mkfifo(path("output.txt").c_str(), 0600), 0);
    const int output = open(path("output.txt").c_str(), O_RDWR | O_NONBLOCK);
    while (write(output, "full", 4) > 0) {
    }
    startFrontEnd();
    waitForList();
    EXPECT_EQ(leave(), 0);
    close(output);
    std::filesystem::remove(path("output.txt"));
}

} // namespace
