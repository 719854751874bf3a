// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch/process_runner.h"

#include "platform/keys.h"
#include "platform/screen.h"
#include "platform/virtual_clock.h"
#include "support/sdl_events.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

class ProcessRunnerTest : public ::testing::Test {
protected:
    void SetUp() override { GetSystemMetrics(SM_CXSCREEN); }

    std::string path(const char* name) const { return folder.pathOf(name); }

    static std::string errorsOf(const std::function<void()>& action) {
        testing::internal::CaptureStderr();
        action();
        return testing::internal::GetCapturedStderr();
    }

    static int attached(std::string commandLine, DWORD* exitCode, int gameRun) {
        return runAttached(commandLine.data(), "/", exitCode, gameRun);
    }

    TemporaryFolder folder;
};

TEST_F(ProcessRunnerTest, ReturnsTheExitCodeOfGamesOnly) {
    DWORD exitCode = 77;
    EXPECT_EQ(attached("sh -c \"exit 5\"", &exitCode, 0), 1);
    EXPECT_EQ(exitCode, 77U);
    EXPECT_EQ(virtualClockMilliseconds(), 0) << "no delay unless a game is run";
    EXPECT_EQ(attached("sh -c \"exit 5\"", &exitCode, 1), 1);
    EXPECT_EQ(exitCode, 5U);
    EXPECT_EQ(virtualClockMilliseconds(), 1000) << "even if the game has already ended";
    EXPECT_EQ(attached("sh -c \"exit 5\"", nullptr, 1), 1);
}

TEST_F(ProcessRunnerTest, DiscardsPressesAfterARunAndAfterAFailedStart) {
    for (const char* program : {"true", "/no/such/program"}) {
        pressKey(SDL_SCANCODE_UP);
        releaseKey(SDL_SCANCODE_UP);
        errorsOf([&] { attached(program, nullptr, 1); });
        virtualClockAdvance(10);
        pressKey(SDL_SCANCODE_DOWN);
        releaseKey(SDL_SCANCODE_DOWN);
        errorsOf([&] { attached(program, nullptr, 0); });
        EXPECT_EQ(GetAsyncKeyState(VK_UP), 0) << program;
        EXPECT_EQ(GetAsyncKeyState(VK_DOWN), 0) << program;
    }
}

TEST_F(ProcessRunnerTest, ReportsWhatCouldNotBeStartedOrOpened) {
    DWORD exitCode = 77;
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(attached("/no/such thing", &exitCode, 1), 0); }),
              "Error: Failed to execute [/no/such thing]!\n");
    EXPECT_EQ(exitCode, 77U);
    const std::string longLine = "/no/such/" + std::string(2000, 'x');
    EXPECT_EQ(errorsOf([&] { attached(longLine, &exitCode, 1); }),
              "Error: Failed to execute [" + longLine + "]!\n");

    char command[] = "true";
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(runToFile(command, "/", "/no/such/file"), 0); }),
              "Error: Failed to create file [/no/such/file]!\n");
    EXPECT_EQ(
        errorsOf([&] { EXPECT_EQ(runFilter(command, "/", "/no/such/input", path("output").c_str()), 0); }),
        "Error: Failed to open file [/no/such/input]!\n");
    EXPECT_TRUE(std::filesystem::exists(path("output"))) << "the output file is created first";
    EXPECT_EQ(std::filesystem::file_size(path("output")), 0U);
}

TEST_F(ProcessRunnerTest, RedirectsOutputErrorsAndInput) {
    std::string toFile = "sh -c \"echo out; echo err >&2; pwd\"";
    EXPECT_EQ(runToFile(toFile.data(), "/usr", path("first").c_str()), 1);
    EXPECT_EQ(folder.read("first"), "out\nerr\n/usr\n");
    std::string filter = "sed s/out/OUT/";
    EXPECT_EQ(runFilter(filter.data(), "/", path("first").c_str(), path("second").c_str()), 1);
    EXPECT_EQ(folder.read("second"), "OUT\nerr\n/usr\n");
    EXPECT_EQ(runFilter(filter.data(), "/", path("first").c_str(), path("second").c_str()), 1);
    EXPECT_EQ(folder.read("second"), "OUT\nerr\n/usr\n") << "an existing output file is truncated";
}

} // namespace
