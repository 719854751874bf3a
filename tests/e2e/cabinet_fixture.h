// A demonstration cabinet in a folder of its own, the real front end in it and a virtual screen before it.
// The fixture of every end-to-end test. It knows what the screen looks like with the cabinet's colours, and
// nothing of the program's inside.
#pragma once

#include "cabinet.h"
#include "virtual_screen.h"

#include <gtest/gtest.h>
#include <optional>

constexpr const char* FrontEndTitle = "KESTRAVOX";

// Limits, in milliseconds, that only a hang can reach.
constexpr int StepLimit = 10000;
constexpr int LongLimit = 30000;

class CabinetTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::string path(const std::string& name) const { return folder + "/" + name; }
    // A display in place of the former one.
    void startScreen();

    std::string readFile(const std::string& name) const;
    // Until the file is there and not empty.
    bool waitForFile(const std::string& name) const;
    void writeFile(const std::string& name, const std::string& content) const;
    // An executable script; the shell runs its lines.
    void writeScript(const std::string& name, const std::string& lines) const;
    void writeSettings(const std::vector<SettingChange>& changes) const;

    // The list as the stand-in and the converter make it, so that a test need not wait for that.
    void makeList() const;

    void startFrontEnd(const std::vector<std::string>& arguments = {},
                       std::optional<unsigned long> fileSizeLimit = std::nullopt);
    // Until the list is on the screen and the keyboard is the front end's; gives that picture.
    Screenshot waitForList();
    // What the front end and its children have written to their standard streams.
    std::string output() const { return readFile("output.txt"); }

    // Ends it with the Exit key. Nothing when it hangs.
    std::optional<int> leave();
    // Answers message boxes until the program ends.
    std::optional<int> answerBoxesUntilExit();

    // Starts the selected game, and waits until a window of that title has the keyboard.
    bool startGame(const std::string& title);

    // Top of the bar behind the selected title, -1 when there is none.
    static int barTop(const Screenshot& shot);

    std::string folder;
    std::unique_ptr<VirtualScreen> screen;
    std::unique_ptr<ChildProgram> frontEnd;
};

// Value of the first line with that key, of any section; empty when it has none.
std::string settingIn(const std::string& ini, const std::string& key);

// Short names of the games that the cabinet shows, in the order of their titles.
std::vector<std::string> shownGames();
