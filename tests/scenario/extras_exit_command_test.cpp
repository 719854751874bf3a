// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/front_end.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

namespace {

// Waits for the program that the front end has left behind. Returns false when there is none.
bool waitForCommand() {
    return waitpid(-1, nullptr, 0) > 0;
}

TEST(ExtrasExitCommand, RunsAfterTheExitControlOnly) {
    const auto terminate = +[] { std::raise(SIGTERM); };
    const struct {
        const char* what;
        std::int64_t exitAt; // 0: the control is not used
        void (*request)();   // at 350
        const char* list;
        bool runs;
    } rows[] = {
        {"exit", 350, nullptr, nullptr, true},
        {"signal", 0, terminate, nullptr, false},
        {"window closed", 0, [] { pushWindowEvent(SDL_WINDOWEVENT_CLOSE); }, nullptr, false},
        {"signal during the shutdown sound", 250, terminate, nullptr, false},
        {"failed start", 350, nullptr, "", false},
    };
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.writeGames(3);
        if (row.list) {
            frontEnd.folder().write("listinfo.dat", row.list);
        }
        frontEnd.folder().write("off", "#!/bin/sh\ngrep SelectedGame kestravox.ini > out\n"
                                       "printf '%s|' \"$@\" $(ps -o sid= -p $$) >> out\n");
        std::filesystem::permissions("off", std::filesystem::perms::all);
        frontEnd.set("Sounds", "Shutdown", "bye");
        frontEnd.set("Extras", "ExitCommand", "./off \"two words\" $HOME;ls");
        frontEnd.tap(150, SDL_SCANCODE_DOWN);
        if (row.exitAt > 0) {
            frontEnd.tap(row.exitAt, SDL_SCANCODE_ESCAPE);
        }
        if (row.request) {
            frontEnd.at(350, row.request);
        }
        frontEnd.runToEnd();
        EXPECT_EQ(waitForCommand(), row.runs) << row.what;
        if (row.runs) {
            const std::string before = "SelectedGame=g001\ntwo words|$HOME;ls|";
            const std::string out = frontEnd.folder().read("out");
            ASSERT_EQ(out.substr(0, before.size()), before);
            EXPECT_NE(std::stoi(out.substr(before.size())), getsid(0)) << "a session of its own";
        }
    }
}

TEST(ExtrasExitCommand, ReportsACommandThatIsNoProgram) {
    FrontEnd frontEnd;
    frontEnd.writeGames(1);
    frontEnd.set("Extras", "ExitCommand", "./missing now");
    testing::internal::CaptureStderr();
    EXPECT_EQ(frontEnd.run(150), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "ExitCommand could not be started: ./missing now\n");
}

} // namespace
