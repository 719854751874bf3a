// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up page by page on virtual time, operated by keys, with a script in place of the emulator. Programs
// run in real time, so keys are pressed not at given times but when a line is selected.
#include "setup/pages/pages.h"

#include "config/settings.h"
#include "platform/profile.h"
#include "setup/page_keys.h"
#include "setup/pages/setup_state.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

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

} // namespace
