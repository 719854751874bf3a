// SPDX-License-Identifier: GPL-3.0-or-later
// Fixture for the end-to-end tests: a demonstration cabinet in a temporary folder, the real front end, and a
// virtual screen. Knows how the screen looks with the cabinet's colours, but nothing of the program's
// internals.
#pragma once

#include "cabinet.h"
#include "virtual_screen.h"

#include <gtest/gtest.h>
#include <optional>

constexpr const char* frontEndTitle = "KESTRAVOX";

// Timeouts in milliseconds, which only a hang reaches.
constexpr int stepTimeout = 10000;
constexpr int longTimeout = 30000;

class CabinetTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::string path(const std::string& name) const { return folder + "/" + name; }
    // Starts a virtual screen, replacing the previous one.
    void startScreen();

    std::string readFile(const std::string& name) const;
    // Waits until the file exists and is not empty. Returns false on a timeout.
    bool waitForFile(const std::string& name) const;
    void writeFile(const std::string& name, const std::string& content) const;
    // Writes an executable shell script.
    void writeScript(const std::string& name, const std::string& lines) const;
    void writeSettings(const std::vector<SettingChange>& changes) const;

    // Generates the game list in advance, so that the front end starts without doing so.
    void generateList() const;

    void startFrontEnd(const std::vector<std::string>& arguments = {},
                       std::optional<unsigned long> fileSizeLimit = std::nullopt);
    // Waits until the list is on the screen and the front end has the focus. Returns a screenshot.
    Screenshot waitForGameList();
    // The standard output and standard error of the front end and its child processes.
    std::string output() const { return readFile("output.txt"); }

    // Ends the front end with the Exit key. Returns its exit code; nothing on a timeout.
    std::optional<int> exitByKey();
    // Closes message boxes until the front end ends. Returns its exit code; nothing on a timeout.
    std::optional<int> answerBoxesUntilExit();

    // Starts the selected game and waits until a window with this title has the focus.
    bool startGame(const std::string& title);

    // Returns the y coordinate of the top of the highlight bar; -1 when there is none.
    static int barTop(const Screenshot& shot);

    std::string folder;
    std::unique_ptr<VirtualScreen> screen;
    std::unique_ptr<ChildProgram> frontEnd;
};

// Returns the value of the first line with this key, in any section; empty when there is none.
std::string settingIn(const std::string& ini, const std::string& key);

// Returns the short names of the games that the cabinet shows, sorted by title.
std::vector<std::string> shownGames();
