// The set-up page by page on virtual time, operated by keys, with a script in place of the emulator. Programs
// run in real time, so keys are pressed not at given times but when a line is selected.
#include "setup/pages/pages.h"

#include "config/settings.h"
#include "platform/messages.h"
#include "platform/profile.h"
#include "platform/test_access.h"
#include "platform/virtual_clock.h"
#include "setup/pages/applied_settings.h"
#include "setup/pages/control_capture.h"
#include "setup/pages/key_display.h"
#include "setup/pages/page_window.h"
#include "setup/pages/setup_state.h"
#include "support/sdl_events.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>

namespace {

namespace fs = std::filesystem;

void tapAt(std::int64_t time, SDL_Scancode key, std::int64_t held = 10) {
    virtualClockAt(time, [key] { pressKey(key); });
    virtualClockAt(time + held, [key] { releaseKey(key); });
}

std::uint32_t pixelAt(int x, int y) {
    const ScreenPixels screen = screenPixels();
    return screen.pixels[y * screen.stride + x];
}

// Whether a page waits with a line selected: the bar behind it is neither as thin as the rule below the title
// nor as wide as the screen, like a notice.
bool isLineSelected() {
    const std::uint32_t bar = pixelOfColor(settings.highlightBackColor);
    int count = 0;
    for (int y = 0; y < 480; ++y) {
        for (int x = 0; x < 640; ++x) {
            count += pixelAt(x, y) == bar ? 1 : 0;
        }
    }
    return count > 1500 && pixelAt(1, 460) != bar && pixelAt(1, 450) != bar;
}

// Its end left a message that would end the next one.
void forgetFormerWindow() {
    for (MSG message{}; PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);) {
        GetMessageA(&message, nullptr, 0, 0);
    }
}

struct Step {
    SDL_Scancode key;
    int times = 1;
    bool always = false; // also when no line is selected
};

class SetupPages : public ::testing::Test {
protected:
    SetupPages() {
        forgetFormerWindow();
        setScreenSize(640, 480);
        for (const char* name : {"home/roms", "home/snap", "home/sounds", "bin"}) {
            fs::create_directories(folder.pathOf(name));
        }
        setenv("HOME", folder.pathOf("home").c_str(), 1);
        unsetenv("XDG_CONFIG_HOME");
        setenv("PATH", (folder.pathOf("bin") + ":/bin").c_str(), 1);
        writeProgram("bin/mame", "case $1 in\n-showconfig) echo 'rompath \"$HOME/roms\"' ;;\n"
                                 "-version) echo '0.999 (test)' ;;\n*) cat $HOME/list.xml ;;\nesac\n");
        folder.write("home/list.xml",
                     "<mame><machine name=\"pong\"><description>Pong</description></machine>"
                     "<machine name=\"pacman\"><description>Pac-Man</description></machine></mame>");
        for (const char* name : {"home/roms/pacman.zip", "home/snap/pacman.png", "home/sounds/Start.wav"}) {
            folder.write(name, "");
        }
    }

    void writeProgram(const std::string& name, const std::string& script) {
        folder.write(name, "#!/bin/sh\n" + script);
        fs::permissions(folder.pathOf(name), fs::perms::owner_all);
    }

    // Presses the keys in order, each after the page has been the same for 200 ms.
    void press(const std::vector<Step>& steps) {
        keys.clear();
        for (const Step& step : steps) {
            keys.insert(keys.end(), static_cast<std::size_t>(step.times), step);
        }
        next = 0;
        pressNext();
    }

    void pressNext() {
        virtualClockAt(virtualClockMilliseconds() + 200, [this] {
            if (next < keys.size() && (keys[next].always || isLineSelected())) {
                tapAt(virtualClockMilliseconds(), keys[next++].key);
            }
            if (next < keys.size()) {
                pressNext();
            }
        });
    }

    static int run() {
        forgetFormerWindow();
        pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED);
        return runSetupPages({}).value_or(-1);
    }

    std::string get(const char* section, const char* key) const {
        char value[255];
        GetPrivateProfileStringA(section, key, "(none)", value, sizeof(value), ini.c_str());
        return value;
    }

    const TemporaryFolder folder;
    const std::string ini = folder.pathOf("home/.config/kestravox/kestravox.ini");
    std::vector<Step> keys;
    std::size_t next = 0;
};

constexpr Step choose = {SDL_SCANCODE_RETURN};
constexpr Step last = {SDL_SCANCODE_UP}; // from the first line

TEST_F(SetupPages, WalkFromTheEmulatorToTheWrittenFile) {
    press({choose,
           // Placeholders, then on from the line that takes their place.
           {SDL_SCANCODE_UP},
           choose,
           {SDL_SCANCODE_RETURN, 1, true},
           // The monitor is turned clockwise.
           {SDL_SCANCODE_UP, 4},
           {SDL_SCANCODE_RIGHT},
           last,
           choose,
           // Up: A is in use, Shift is not. Player 2's down: none, then Home for page up.
           {SDL_SCANCODE_UP, 10},
           choose,
           {SDL_SCANCODE_A, 1, true},
           {SDL_SCANCODE_LSHIFT, 1, true},
           {SDL_SCANCODE_RIGHT, 1, true},
           {SDL_SCANCODE_RIGHT},
           {SDL_SCANCODE_DOWN},
           {SDL_SCANCODE_DELETE},
           {SDL_SCANCODE_DOWN},
           choose,
           {SDL_SCANCODE_HOME, 1, true},
           {SDL_SCANCODE_UP, 3},
           choose,
           // Sounds, summary, and the page after the writing.
           {SDL_SCANCODE_RETURN, 3}});
    ASSERT_EQ(run(), 0) << "after " << next << " keys";
    const struct {
        const char* section;
        const char* key;
        std::string value;
    } written[] = {
        {"Settings", "Mame.exe", folder.pathOf("bin/mame") + " -skip_gameinfo"},
        {"Settings", "Roms.dir", folder.pathOf("home/roms")},
        {"Settings", "Snapshot.dir", folder.pathOf("home/snap")},
        {"Settings", "Orientation", "ROL"},
        {"Extras", "Layout", "Turned"},
        {"Keymappings", "SelectUp", "160"},
        {"Keymappings", "P2StartGame", "65"},
        {"Keymappings", "P2SelectDown", "0"},
        {"Keymappings", "P2SelectPageUp", "36"},
        {"Extras", "PictureKey", "0"},
        {"Extras", "RandomKey", "18"},
        {"Sounds", "Startup", folder.pathOf("home/sounds/Start.wav")},
        {"Sounds", "Error", ""},
    };
    for (const auto& row : written) {
        EXPECT_EQ(get(row.section, row.key), row.value) << row.key;
    }
    EXPECT_TRUE(folder.has("home/roms/pong.zip"));
    EXPECT_NE(folder.read("home/.config/kestravox/listinfo.dat").find("name pong"), std::string::npos);

    // The file is what is chosen the next time.
    const std::string former = folder.read("home/.config/kestravox/kestravox.ini") + "pong=-window\n";
    folder.write("home/.config/kestravox/kestravox.ini", former);
    press({{SDL_SCANCODE_RETURN, 7}});
    ASSERT_EQ(run(), 0) << "after " << next << " keys";
    EXPECT_EQ(folder.read("home/.config/kestravox/kestravox.ini"), former);
    EXPECT_EQ(folder.read("home/.config/kestravox/kestravox.ini.bak"), former);
}

TEST_F(SetupPages, LeaveNothingWhenTheyEndBeforeTheSummary) {
    press({choose,
           {SDL_SCANCODE_ESCAPE, 2},
           choose, // go on
           {SDL_SCANCODE_BACKSPACE},
           {SDL_SCANCODE_DOWN},
           choose});
    EXPECT_EQ(run(), 1);
    EXPECT_EQ(next, keys.size());
    EXPECT_FALSE(folder.has("home/.config/kestravox"));
}

TEST_F(SetupPages, ASignalEndsThemWithoutWriting) {
    press({{SDL_SCANCODE_RETURN, 5}});
    const std::function<void()> endOnLastPage = [&] {
        if (next < keys.size()) {
            virtualClockAt(virtualClockMilliseconds() + 50, endOnLastPage);
        } else {
            std::raise(SIGTERM);
        }
    };
    virtualClockAt(0, endOnLastPage);
    EXPECT_EQ(run(), 1);
    EXPECT_FALSE(folder.has("home/.config/kestravox"));
}

TEST_F(SetupPages, AnotherRomFolderChangesOnlyAProposedCommand) {
    SetupState state;
    state.emulator.program = "/games/mame";
    state.chosen.set("Settings", "Mame.exe", "/games/mame -skip_gameinfo");
    chooseFolder(state, 0, folder.pathOf("home/roms"));
    EXPECT_EQ(state.chosen.value("Settings", "Mame.exe"),
              "/games/mame -rompath " + folder.pathOf("home/roms") + " -skip_gameinfo");
    EXPECT_EQ(state.counts[0].files, 1);
    state.chosen.set("Settings", "Mame.exe", "/games/mame -window");
    chooseFolder(state, 0, "");
    EXPECT_EQ(state.chosen.value("Settings", "Mame.exe"), "/games/mame -window");
}

// The border of every page is free, so nothing is cut off, on every screen and at every rotation.
TEST_F(SetupPages, AreWholeOnEveryScreen) {
    PageContent content;
    const std::string longText(200, 'W');
    content.title = content.help = content.notice = content.large = content.place = longText.substr(0, 60);
    content.help += " " + longText + " and a text that is long enough for more than one line on each screen";
    content.notice = content.keys = content.help;
    content.place = "1 of 6";
    content.columns = {{longText, 30}, {"Number", 20, true}};
    content.lines.assign(40, {longText, {longText, "12345"}, longText, nullptr, nullptr, nullptr});
    ChosenSettings chosen;
    for (const SIZE size : {SIZE{640, 480}, SIZE{1280, 1024}, SIZE{1920, 1080}}) {
        for (const char* word : {"Normal", "ROL", "ROR", "Inverted"}) {
            chosen.set("Settings", "Orientation", word);
            applySettings(chosen);
            setScreenSize(size.cx, size.cy);
            ASSERT_TRUE(openPageWindow());
            showPage(content);
            servePageWindow();
            std::set<std::uint32_t> border;
            for (int x = 0; x < size.cx; ++x) {
                border.insert({pixelAt(x, 1), pixelAt(x, size.cy - 2)});
            }
            for (int y = 0; y < size.cy; ++y) {
                border.insert({pixelAt(1, y), pixelAt(size.cx - 2, y)});
            }
            EXPECT_EQ(border, (std::set{pixelOfColor(settings.backgroundColor),
                                        pixelOfColor(settings.statusBarBackColor),
                                        pixelOfColor(settings.highlightBackColor)}))
                << size.cx << " " << word;
            closePageWindow();
            forgetFormerWindow();
        }
    }
}

TEST_F(SetupPages, OnlyMovesRepeatWhileAControlIsHeld) {
    applySettings(ChosenSettings());
    ASSERT_TRUE(openPageWindow());
    int steps = 0;
    int choices = 0;
    PageContent content;
    content.lines = {{"Line",
                      {},
                      "",
                      [&choices] {
                          ++choices;
                          return PageAction::stay;
                      },
                      [&steps](int direction) { steps += direction; },
                      nullptr}};
    const std::int64_t start = virtualClockMilliseconds();
    tapAt(start + 100, SDL_SCANCODE_RIGHT, 350);   // one step
    tapAt(start + 1000, SDL_SCANCODE_LEFT, 850);   // one, and five from 400 ms on
    tapAt(start + 2000, SDL_SCANCODE_RETURN, 900); // one choice
    tapAt(start + 3000, SDL_SCANCODE_ESCAPE);
    content.notice = "shown until the first action";
    std::vector<bool> hasNotice;
    for (const std::int64_t time : {50, 900}) {
        virtualClockAt(start + time, [&hasNotice] {
            hasNotice.push_back(pixelAt(1, 450) == pixelOfColor(settings.highlightBackColor));
        });
    }
    EXPECT_EQ(runPage([&content] {
                  PageContent built = content;
                  built.notice = std::exchange(content.notice, "");
                  return built;
              }),
              PageAction::back);
    EXPECT_EQ(hasNotice, (std::vector{true, false}));
    EXPECT_EQ(choices, 1);
    EXPECT_EQ(steps, 1 - 1 - 5);
    closePageWindow();
}

TEST_F(SetupPages, AJoystickThatIsPluggedInChoosesAndIsCaptured) {
    applySettings(ChosenSettings());
    ASSERT_TRUE(openPageWindow());
    SDL_Joystick* pad = nullptr;
    const auto button = [&pad](std::int64_t time, int number, bool down) {
        virtualClockAt(virtualClockMilliseconds() + time,
                       [&pad, number, down] { SDL_JoystickSetVirtualButton(pad, number, down ? 1 : 0); });
    };
    virtualClockAt(virtualClockMilliseconds() + 100, [&pad] {
        SDL_InitSubSystem(SDL_INIT_JOYSTICK);
        pad = SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
    });
    PageContent content;
    CapturedControl captured;
    // Button 1 chooses; it is held when the capture starts, and counts when it is pressed again.
    int captures = 0;
    const auto capture = [&captured, &captures] {
        ++captures;
        captured = captureControl(true, 1000);
        return PageAction::stay;
    };
    content.lines = {{"Line", {}, "", capture, nullptr, nullptr}};
    button(300, 0, true);
    button(500, 0, false);
    button(700, 0, true);
    button(900, 0, false);
    button(1100, 1, true);
    EXPECT_EQ(runPage([&content] { return content; }), PageAction::back);
    EXPECT_TRUE(captured.isJoystick);
    EXPECT_EQ(captured.code, 1);
    EXPECT_EQ(captures, 1) << "the captured press does not choose as well";
    closePageWindow();
    SDL_JoystickClose(pad);
    SDL_JoystickDetachVirtual(0);
}

TEST_F(SetupPages, KeysAreShownUntilNothingIsPressed) {
    const struct {
        std::vector<SDL_Scancode> keys;
        std::string printed;
        std::int64_t end; // seconds after the first key
    } cases[] = {
        {{SDL_SCANCODE_A, SDL_SCANCODE_RCTRL}, "Key 65 A\nKey 163 Right Ctrl\n", 11},
        {{SDL_SCANCODE_ESCAPE, SDL_SCANCODE_B, SDL_SCANCODE_ESCAPE, SDL_SCANCODE_ESCAPE},
         "Key 27 Escape\nKey 66 B\nKey 27 Escape\nKey 27 Escape\n",
         3},
    };
    for (const auto& row : cases) {
        const std::int64_t start = virtualClockMilliseconds() + 20000; // nothing ends before the first press
        for (std::size_t index = 0; index < row.keys.size(); ++index) {
            tapAt(start + static_cast<std::int64_t>(index) * 1000, row.keys[index]);
        }
        forgetFormerWindow();
        testing::internal::CaptureStdout();
        EXPECT_EQ(showPressedKeys(), 0);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);
        EXPECT_EQ((virtualClockMilliseconds() - start + 500) / 1000, row.end);
    }
}

} // namespace
