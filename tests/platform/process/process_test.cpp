// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process.h"

#include "platform/base/end_request.h"
#include "platform/display/display.h"
#include "platform/files.h"
#include "platform/files/paths.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <thread>

namespace {

using namespace std::chrono_literals;

class ProcessTest : public ::testing::Test {
protected:
    void writeScript(std::string_view name, std::string_view commands) const {
        std::filesystem::permissions(folder.write(name, "#!/bin/sh\n" + std::string(commands) + '\n'),
                                     std::filesystem::perms::owner_all);
    }

    static HANDLE output(const char* name) {
        return CreateFileA(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    }

    static bool start(std::string commandLine, PROCESS_INFORMATION& process,
                      const char* workingDirectory = nullptr, HANDLE input = nullptr,
                      HANDLE outputs = nullptr) {
        STARTUPINFOA startup{};
        startup.dwFlags = outputs ? STARTF_USESTDHANDLES : 0;
        startup.hStdInput = input;
        startup.hStdOutput = outputs;
        startup.hStdError = outputs;
        return CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                              workingDirectory, &startup, &process) == TRUE;
    }

    // Runs a command to its end with all output redirected to the file "out". Returns its exit code, or -1
    // when it was not started.
    static int run(const std::string& commandLine, const char* workingDirectory = nullptr,
                   HANDLE input = nullptr) {
        const HANDLE outputs = output("out");
        PROCESS_INFORMATION process{};
        const bool started = start(commandLine, process, workingDirectory, input, outputs);
        CloseHandle(outputs);
        DWORD code = 0;
        if (started) {
            EXPECT_EQ(WaitForSingleObject(process.hProcess, INFINITE), WAIT_OBJECT_0);
            EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code));
            EXPECT_TRUE(CloseHandle(process.hProcess));
            EXPECT_TRUE(CloseHandle(process.hThread));
        }
        return started ? static_cast<int>(code) : -1;
    }

    // Like run, but requests the program's end once the child has written something.
    int runAndAskToEnd(const std::string& commandLine) const {
        std::error_code none;
        std::filesystem::remove("out", none);
        const std::jthread request([&] {
            while (!folder.has("out") || std::filesystem::file_size("out") == 0) {
                usleep(5000);
            }
            kill(getpid(), SIGTERM);
        });
        return run(commandLine);
    }

    TemporaryFolder folder;
};

TEST_F(ProcessTest, RedirectsAllStreams) {
    writeScript("child", "cat; echo error >&2; echo \"$2\"");
    folder.write("in", "input\n");
    const HANDLE input = CreateFileA("in", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(run(R"(.\child a "b  $(c) ;")", nullptr, input), 0);
    EXPECT_EQ(folder.read("out"), "input\nerror\nb  $(c) ;\n");
    CloseHandle(input);
    EXPECT_EQ(run("./child"), 0);
    EXPECT_EQ(folder.read("out"), "error\n\n");
}

TEST_F(ProcessTest, InheritsStandardInputAndNothingElse) {
    const HANDLE other = output("other");
    const int leak = dup(STDERR_FILENO); // open across an exec
    signal(SIGPIPE, SIG_IGN);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, nullptr);
    writeScript("child", "ls /proc/$$/fd; sed -nE 's/^Sig(Blk|Ign).*(.{7})$/\\2/p' /proc/self/status; "
                         "[ $(ps -o pgid= $$) = $$ ] && echo leader");
    EXPECT_EQ(run("./child", nullptr, GetStdHandle(STD_INPUT_HANDLE)), 0);
    // The shell itself has its script open as 10.
    EXPECT_EQ(folder.read("out"), "0\n1\n10\n2\n0000000\n0300000\nleader\n")
        << "only SIGTTIN and SIGTTOU are ignored";
    EXPECT_EQ(GetStdHandle(0), nullptr);
    sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
    close(leak);
    CloseHandle(other);
}

TEST_F(ProcessTest, FindsTheProgram) {
    std::filesystem::create_directories("games/inner");
    writeScript("games/tool", "pwd");
    writeScript("games/both", "echo plain");
    writeScript("games/both.exe", "echo exe");
    writeScript("games/own name", "echo blank");
    folder.write("games/broken.exe", "no program");
    std::filesystem::permissions("games/broken.exe", std::filesystem::perms::owner_all);
    writeScript("games/broken", "echo whole");
    folder.write("plain.txt", "echo no");
    writeScript("lost", "");
    folder.write("lost", "#!/no/such/interpreter\n");
    writeScript("here", "echo here");
    const struct {
        const char* commandLine;
        const char* workingDirectory;
        int code;
        std::string output;
    } cases[] = {
        {"tool", "games", 0, folder.pathOf("games") + "\n"},
        {"TOOL.EXE", "games", -1, ""},
        {"tool.EXE", "games", 0, folder.pathOf("games") + "\n"},
        {"both", "games", 0, "plain\n"},
        {"both.exe", "games", 0, "exe\n"},
        {"broken.exe", "games", 0, "whole\n"},
        {"here", "games", 0, "here\n"},
        {".\\here x", "games", 0, "here\n"},
        {"\"games\\own name\" x", nullptr, 0, "blank\n"},
        {"./tool", "games", -1, ""},
        {"sh -c \"exit 7\"", nullptr, 7, ""},
        {"sh -c \"kill -9 $$\"", nullptr, 128 + SIGKILL, ""},
        {"true", "none", -1, ""},
        {"true", "plain.txt", -1, ""},
        {"inner", "games", -1, ""},
    };
    for (const auto& [commandLine, workingDirectory, code, expected] : cases) {
        EXPECT_EQ(run(commandLine, workingDirectory), code) << commandLine;
        EXPECT_EQ(folder.read("out"), expected) << commandLine;
    }
    for (const char* commandLine :
         {"", "\"\"", "none", "./games", "./plain.txt", "./games/broken.exe/", "./lost", "here;true"}) {
        EXPECT_EQ(run(commandLine), -1) << commandLine;
    }
    std::filesystem::remove("games/broken");
    EXPECT_EQ(run("broken.exe", "games"), -1) << "a text file is not run by a shell";
}

TEST_F(ProcessTest, PassesLongLinesAndLargeOutput) {
    const std::string word(100'000, 'w');
    EXPECT_EQ(run("printf %s%s " + word + ' ' + word), 0);
    EXPECT_EQ(folder.read("out"), word + word);
    EXPECT_EQ(run("printf " + std::string(3'000'000, 'w')), -1);
    EXPECT_EQ(run("head -c 20000000 /dev/zero"), 0);
    EXPECT_EQ(std::filesystem::file_size("out"), 20'000'000u);
}

TEST_F(ProcessTest, HandlesReportOnlyWhatIsKnown) {
    signal(SIGCHLD, SIG_IGN);
    writeScript("child", "read line; exit 3");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const HANDLE input = CreateFileA(("/proc/self/fd/" + std::to_string(ends[0])).c_str(), GENERIC_READ, 0,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    const HANDLE outputs = output("out");
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(start("./child", process, nullptr, input, outputs));
    DWORD code = 99;
    EXPECT_FALSE(GetExitCodeProcess(process.hProcess, &code));
    EXPECT_FALSE(GetExitCodeProcess(process.hThread, &code));
    EXPECT_EQ(WaitForSingleObject(process.hThread, INFINITE), WAIT_FAILED);
    EXPECT_EQ(WaitForSingleObject(nullptr, INFINITE), WAIT_FAILED);
    EXPECT_EQ(code, 99u);
    ASSERT_EQ(::write(ends[1], "\n", 1), 1);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(process.hProcess, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code));
    EXPECT_EQ(code, 3u);
    EXPECT_TRUE(CloseHandle(process.hProcess));
    EXPECT_FALSE(CloseHandle(process.hProcess));
    EXPECT_FALSE(GetExitCodeProcess(process.hProcess, &code));
}

TEST_F(ProcessTest, AnAbandonedChildIsReapedLater) {
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(start("sleep 0.05", process));
    const auto child = static_cast<pid_t>(process.dwProcessId);
    CloseHandle(process.hProcess);
    siginfo_t ended{};
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
    EXPECT_EQ(run("true"), 0);
    EXPECT_NE(kill(child, 0), 0);
}

// Each script ignores the signals that are sent before the expected one.
TEST_F(ProcessTest, AnEndRequestEndsTheWholeProcessGroup) {
    int width = 0;
    int height = 0;
    displaySize(width, height); // starting the display installs the signal handlers
    const struct {
        const char* script;
        int signal;
        int earliest; // seconds after the request
    } cases[] = {
        {"", SIGTERM, 0},
        {"trap '' TERM; ", SIGHUP, 2},
        {"trap '' TERM HUP; ", SIGKILL, 4},
    };
    for (const auto& [script, signal, earliest] : cases) {
        forgetEndRequest();
        writeScript("child",
                    std::string(script) + "sleep 1000 & echo $!; wait; while :; do sleep 0.05; done");
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(runAndAskToEnd("./child"), 128 + signal);
        const auto taken = std::chrono::steady_clock::now() - start;
        EXPECT_GE(taken, std::chrono::seconds(earliest));
        EXPECT_LT(taken, std::chrono::seconds(earliest) + 1900ms);
        EXPECT_NE(kill(std::stoi(folder.read("out")), 0), 0) << "the child's child is gone";
    }
    // A script that ends on the first signal must not leave its own child running.
    forgetEndRequest();
    writeScript("child", "(trap '' TERM; while :; do sleep 0.05; done) & echo $!; wait");
    EXPECT_EQ(runAndAskToEnd("./child"), 128 + SIGTERM);
    EXPECT_NE(kill(std::stoi(folder.read("out")), 0), 0);
}

TEST_F(ProcessTest, AChildIsKilledWithTheProgram) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    prctl(PR_SET_CHILD_SUBREAPER, 1); // orphans of the program are reaped here
    const pid_t program = fork();
    if (program == 0) {
        PROCESS_INFORMATION process{};
        start("sleep 1000", process);
        static_cast<void>(!::write(ends[1], &process.dwProcessId, sizeof(process.dwProcessId)));
        raise(SIGKILL);
    }
    DWORD child = 0;
    ASSERT_EQ(::read(ends[0], &child, sizeof(child)), static_cast<ssize_t>(sizeof(child)));
    waitpid(program, nullptr, 0);
    int status = 0;
    EXPECT_EQ(waitpid(static_cast<pid_t>(child), &status, 0), static_cast<pid_t>(child));
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(ProcessTest, FindsAnUnquotedPathWithSpaces) {
    std::filesystem::create_directory("my games");
    writeScript("my games/the emulator", "echo \"$#:$1\"");
    for (const std::string name : {"./my games/the emulator", ".\\my games\\the emulator.exe"}) {
        EXPECT_EQ(run(name + " pong \"a b\""), 0) << name;
        EXPECT_EQ(folder.read("out"), "2:pong\n");
        EXPECT_EQ(run(name), 0) << name;
    }
    writeScript("my", "echo first");
    EXPECT_EQ(run("./my games/the emulator"), 0);
    EXPECT_EQ(folder.read("out"), "first\n") << "the shortest prefix is tried first";
    EXPECT_EQ(run("./nothing games/the emulator"), -1);
    EXPECT_EQ(run("nothing my"), -1) << "a bare name is one word";
}

} // namespace
