// SPDX-License-Identifier: GPL-3.0-or-later
// The front end from start to exit, as a separate process.
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
    for (std::size_t place = text.find(part); place != std::string::npos;
         place = text.find(part, place + 1)) {
        ++count;
    }
    return count;
}

// A window of another program that takes the keyboard focus. It is destroyed with the object.
class ForeignWindow {
public:
    ForeignWindow(const VirtualScreen& screen, int focusAfterwards)
        : connection_(XOpenDisplay(screen.environment().substr(std::string("DISPLAY=").size()).c_str())),
          window_(XCreateSimpleWindow(connection_, DefaultRootWindow(connection_), 0, 0, 10, 10, 0, 0, 0)) {
        XStoreName(connection_, window_, title);
        XMapWindow(connection_, window_);
        XSetInputFocus(connection_, window_, focusAfterwards, CurrentTime);
        XSync(connection_, False);
    }
    ~ForeignWindow() {
        if (isManager_) {
            XDeleteProperty(connection_, DefaultRootWindow(connection_), managerProperty());
        }
        XCloseDisplay(connection_);
    }
    ForeignWindow(const ForeignWindow&) = delete;
    ForeignWindow& operator=(const ForeignWindow&) = delete;

    // Sets the property that identifies a window_ manager.
    void claimToBeWindowManager() {
        isManager_ = true;
        XChangeProperty(connection_, DefaultRootWindow(connection_), managerProperty(), XA_WINDOW, 32,
                        PropModeReplace, reinterpret_cast<unsigned char*>(&window_), 1);
        XSync(connection_, False);
    }

    static constexpr const char* title = "Foreign";

private:
    Atom managerProperty() const { return XInternAtom(connection_, "_NET_SUPPORTING_WM_CHECK", False); }

    Display* connection_;
    Window window_;
    bool isManager_ = false;
};

TEST_F(CabinetTest, TheFirstStartGeneratesTheListAndKeysMoveTheSelection) {
    startFrontEnd();
    Screenshot first = waitForGameList();
    std::string list = readFile("listinfo.dat");
    auto hidden = std::ranges::count_if(demoGames(), [](const DemoGame& game) {
        return game.kind != DemoKind::game && game.kind != DemoKind::mechanical;
    });
    EXPECT_EQ(countOf(list, "resource ("), hidden);
    EXPECT_EQ(countOf(list, "game ("), static_cast<int>(demoGames().size()) - hidden);

    ASSERT_TRUE(screen->tap("Down"));
    ASSERT_TRUE(
        screen->waitFor([&](const Screenshot& shot) { return barTop(shot) > barTop(first); }, stepTimeout));
    Screenshot second = screen->settled();
    // Two lines of the list and the status bar change; the marquee above does not.
    EXPECT_EQ(second.countDifferences(first, {0, 0, second.width, barTop(first)}), 0);
    EXPECT_GT(second.countDifferences(first, {0, second.height - 40, second.width, second.height}), 0);

    ASSERT_TRUE(screen->tap("Up"));
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot == first; }, stepTimeout));
    screen->tap("x"); // a hundred forward, to the last game
    screen->settled();
    EXPECT_EQ(exitByKey(), 0);
    EXPECT_EQ(settingIn(readFile("kestravox.ini"), "SelectedGame"), shownGames().back());
}

TEST_F(CabinetTest, ATerminationSavesTheSettingsAndKeepsOtherLines) {
    generateList();
    writeSettings({{"Orientation", "Inverted"}});
    std::string before = readFile("kestravox.ini");
    startFrontEnd();
    screen->waitForFocus(frontEndTitle, stepTimeout);
    Screenshot shot = screen->settled();
    screen->tap("Down");
    ASSERT_TRUE(screen->waitFor([&](const Screenshot& later) { return later != shot; }, stepTimeout));
    frontEnd->signal(SIGTERM);
    EXPECT_EQ(frontEnd->waitForExit(stepTimeout), 0);
    std::string after = readFile("kestravox.ini");
    std::vector<std::string> games = shownGames();
    EXPECT_EQ(settingIn(after, "SelectedGame"),
              *(std::ranges::find(games, settingIn(before, "SelectedGame")) + 1));
    EXPECT_EQ(settingIn(after, "Orientation"), "Inverted");
    for (const char* kept :
         {"; crimson bar\n", "Roms.dir=roms\n", "SortBy=Name\n", "outorder=-seconds 2 -exitcode 3\n"}) {
        EXPECT_EQ(countOf(after, kept), countOf(before, kept)) << kept;
    }
}

TEST_F(CabinetTest, StartsWithDefaultsWithoutUsableSettings) {
    generateList();
    std::filesystem::create_directory(path("folder.ini"));
    writeFile("junk.ini",
              std::string("\0\xFF[Settings\nFontsize", 20) + std::string(100000, 'A') + "=\n\x01");
    for (const char* ini : {"missing.ini", "folder.ini", "junk.ini"}) {
        SCOPED_TRACE(ini);
        startFrontEnd({ini});
        // No ROM folder is configured, so only the white background is visible.
        EXPECT_TRUE(screen->waitFor([](const Screenshot& shot) { return shot.at(640, 512) == 0xFFFFFF; },
                                    stepTimeout));
        ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
        EXPECT_EQ(exitByKey(), 0);
    }
    EXPECT_EQ(settingIn(readFile("missing.ini"), "MenuType"), "ListView");
    EXPECT_TRUE(std::filesystem::is_directory(path("folder.ini")));
    EXPECT_NE(readFile("junk.ini").find(std::string(100000, 'A')), std::string::npos);
}

TEST_F(CabinetTest, TakesTheFocusBackFromADestroyedWindowOnly) {
    generateList();
    writeScript("emulator", "sleep 3");
    writeSettings({{"Mame.exe", path("emulator")}});
    startFrontEnd();
    waitForGameList();
    constexpr int pollTime = 1300; // in milliseconds; more than two polls of the front end
    for (int focusAfterwards : {RevertToNone, RevertToPointerRoot, RevertToParent}) {
        {
            ForeignWindow window(*screen, focusAfterwards);
            EXPECT_FALSE(screen->waitForFocus(frontEndTitle, pollTime))
                << "the focus was taken from an existing window";
            EXPECT_EQ(screen->focusedTitle(), ForeignWindow::title);
        }
        ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout)) << focusAfterwards;
        Screenshot shot = screen->settled();
        screen->tap("Down");
        EXPECT_TRUE(screen->waitFor([&](const Screenshot& later) { return later != shot; }, stepTimeout));
    }
    {
        ForeignWindow manager(*screen, RevertToNone);
        manager.claimToBeWindowManager();
        { ForeignWindow window(*screen, RevertToNone); }
        EXPECT_FALSE(screen->waitForFocus(frontEndTitle, pollTime))
            << "restoring the focus is left to the window manager";
    }
    ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
    Screenshot list = screen->settled();
    screen->tap("1");
    screen->settled();
    { ForeignWindow window(*screen, RevertToNone); }
    EXPECT_FALSE(screen->waitForFocus(frontEndTitle, pollTime)) << "the game keeps the focus";
    EXPECT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
    EXPECT_TRUE(screen->waitFor([&](const Screenshot& shot) { return shot == list; }, stepTimeout));
    EXPECT_EQ(exitByKey(), 0);
}

TEST_F(CabinetTest, AFullDiskLosesNeitherTheSettingsNorTheProgram) {
    writeSettings({});
    std::string before = readFile("kestravox.ini");
    startFrontEnd({}, 512); // limit for every file in bytes, also for the list
    EXPECT_EQ(answerBoxesUntilExit(), 1);
    EXPECT_EQ(readFile("kestravox.ini"), before);

    generateList();
    startFrontEnd({}, 512);
    waitForGameList();
    screen->tap("Down");
    screen->settled();
    EXPECT_EQ(exitByKey(), 0);
    EXPECT_EQ(readFile("kestravox.ini"), before);
}

// The information file and the font configuration are invalid, so that both the program and a library print
// messages.
TEST_F(CabinetTest, FullStandardStreamsDoNotBlock) {
    generateList();
    writeFile("mameinfo.dat", "$end\n");
    writeFile("fonts.conf", "<fontconfig><unknown/><include>/etc/fonts/fonts.conf</include></fontconfig>\n");
    setenv("FONTCONFIG_FILE", path("fonts.conf").c_str(), 1);
    ASSERT_EQ(mkfifo(path("output.txt").c_str(), 0600), 0);
    const int output = open(path("output.txt").c_str(), O_RDWR | O_NONBLOCK);
    while (write(output, "full", 4) > 0) {
    }
    startFrontEnd();
    waitForGameList();
    EXPECT_EQ(exitByKey(), 0);
    close(output);
    std::filesystem::remove(path("output.txt"));
}

} // namespace
