// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/cabinet_fixture.h"

#include "games.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr int screenWidth = 1280;
constexpr int screenHeight = 1024;
constexpr std::uint32_t barColour = 0xBC1454; // the highlight colour in the cabinet's settings

bool shown(const DemoGame& game) {
    bool playable = game.kind == DemoKind::game || game.kind == DemoKind::mechanical;
    const DemoGame* original = findDemoGame(game.cloneOf);
    return playable && (original ? original->romPresent : game.romPresent);
}

} // namespace

std::string settingIn(const std::string& ini, const std::string& key) {
    std::istringstream lines(ini);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key + "=")) {
            return line.substr(key.size() + 1);
        }
    }
    return "";
}

std::vector<std::string> shownGames() {
    std::vector<const DemoGame*> games;
    for (const DemoGame& game : demoGames()) {
        if (shown(game)) {
            games.push_back(&game);
        }
    }
    std::ranges::sort(games, {}, [](const DemoGame* game) { return game->description; });
    std::vector<std::string> names;
    for (const DemoGame* game : games) {
        names.emplace_back(game->name);
    }
    return names;
}

void CabinetTest::SetUp() {
    std::string pattern = testing::TempDir() + "cabinet-XXXXXX";
    ASSERT_TRUE(mkdtemp(pattern.data()));
    folder = pattern;
    std::string problem;
    ASSERT_TRUE(layOutCabinet(folder, problem)) << problem;
    startScreen();
}

void CabinetTest::startScreen() {
    std::string problem;
    screen = VirtualScreen::start(screenWidth, screenHeight, problem);
    ASSERT_TRUE(screen) << problem;
}

void CabinetTest::TearDown() {
    if (HasFailure() && screen) {
        std::string picture =
            testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".png";
        screen->capture().writePng(picture);
        ADD_FAILURE() << "final screen: " << picture << "\noutput: " << output().substr(0, 4000);
    }
    frontEnd.reset();
    screen.reset();
    std::error_code error;
    fs::remove_all(folder, error);
}

std::string CabinetTest::readFile(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CabinetTest::writeFile(const std::string& name, const std::string& content) const {
    std::string problem;
    ASSERT_TRUE(writeTextFile(path(name), content, problem)) << problem;
}

void CabinetTest::writeScript(const std::string& name, const std::string& lines) const {
    writeFile(name, "#!/bin/sh\n" + lines + "\n");
    fs::permissions(path(name), fs::perms::owner_all);
}

void CabinetTest::writeSettings(const std::vector<SettingChange>& changes) const {
    writeFile("kestravox.ini", cabinetSettings(changes));
}

void CabinetTest::generateList() const {
    std::string line = "'" DEMO_MAME_PATH "' -listxml | '" XML2INFO_PATH "' > '" + path("listinfo.dat") + "'";
    ChildProgram converter({.words = {"/bin/sh", "-c", line}});
    ASSERT_EQ(converter.waitForExit(longTimeout), 0);
}

void CabinetTest::startFrontEnd(const std::vector<std::string>& arguments,
                                std::optional<unsigned long> fileSizeLimit) {
    ChildOptions options;
    options.words = {KESTRAVOX_PATH};
    options.words.insert(options.words.end(), arguments.begin(), arguments.end());
    options.folder = folder;
    options.environment = {screen->environment(), "SDL_VIDEODRIVER=x11",
                           "LSAN_OPTIONS=suppressions=" LEAKS_PATH};
    options.outputPath = path("output.txt");
    options.fileSizeLimit = fileSizeLimit;
    frontEnd = std::make_unique<ChildProgram>(options);
    ASSERT_TRUE(frontEnd->started());
}

Screenshot CabinetTest::waitForGameList() {
    auto listShown = [&](const Screenshot& shot) { return barTop(shot) >= 0 || !frontEnd->running(); };
    EXPECT_TRUE(screen->waitFor(listShown, longTimeout)) << "the list did not appear";
    EXPECT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout)) << "focus: " << screen->focusedTitle();
    Screenshot shot = screen->settled();
    EXPECT_GE(barTop(shot), 0);
    return shot;
}

bool CabinetTest::waitForFile(const std::string& name) const {
    for (int waited = 0; waited < stepTimeout && readFile(name).empty(); waited += 20) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return !readFile(name).empty();
}

std::optional<int> CabinetTest::exitByKey() {
    screen->tap("Escape");
    return frontEnd->waitForExit(stepTimeout);
}

std::optional<int> CabinetTest::answerBoxesUntilExit() {
    for (int waited = 0; waited < longTimeout; waited += 300) {
        if (std::optional<int> code = frontEnd->waitForExit(300)) {
            return code;
        }
        screen->tap("Return");
    }
    return std::nullopt;
}

bool CabinetTest::startGame(const std::string& title) {
    screen->tap("1");
    return screen->waitForFocus(title, stepTimeout);
}

int CabinetTest::barTop(const Screenshot& shot) {
    // The bar starts at the left edge, where there is no text.
    for (int y = 0; y + 8 < shot.height; ++y) {
        if (shot.countColour({0, y, 4, y + 8}, barColour) == 4 * 8) {
            return y;
        }
    }
    return -1;
}
