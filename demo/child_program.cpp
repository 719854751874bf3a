// SPDX-License-Identifier: GPL-3.0-or-later
#include "child_program.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int cannotStart = 127;

// Runs in the child; returns only if the program cannot be started.
void becomeProgram(const ChildOptions& options, const std::vector<char*>& words, pid_t parent) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        return; // the parent ended before prctl took effect
    }
    if (!options.folder.empty() && chdir(options.folder.c_str()) != 0) {
        return;
    }
    for (const std::string& setting : options.environment) {
        std::size_t equals = setting.find('=');
        setenv(setting.substr(0, equals).c_str(), setting.substr(equals + 1).c_str(), 1);
    }
    if (!options.outputPath.empty()) {
        int output = open(options.outputPath.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
        if (output < 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) {
            return;
        }
        close(output);
    }
    if (options.passedDescriptor >= 0) {
        fcntl(options.passedDescriptor, F_SETFD, 0);
    }
    if (options.fileSizeLimit) {
        rlimit limit{*options.fileSizeLimit, *options.fileSizeLimit};
        setrlimit(RLIMIT_FSIZE, &limit);
        // With SIGXFSZ ignored a write past the limit fails with an error, as on a full disk.
        std::signal(SIGXFSZ, SIG_IGN);
    }
    execvp(words[0], words.data());
}

} // namespace

ChildProgram::ChildProgram(const ChildOptions& options) {
    std::vector<std::string> copies = options.words;
    std::vector<char*> words;
    words.reserve(copies.size() + 1);
    for (std::string& word : copies) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    pid_t parent = getpid();
    process_ = fork();
    if (process_ == 0) {
        becomeProgram(options, words, parent);
        _exit(cannotStart);
    }
    if (process_ > 0) {
        setpgid(process_, process_);
    }
}

ChildProgram::~ChildProgram() {
    if (process_ <= 0) {
        return;
    }
    kill(-process_, SIGKILL);
    if (!exitCode_) {
        waitpid(process_, nullptr, 0);
    }
}

bool ChildProgram::running() {
    return !waitForExit(0).has_value();
}

void ChildProgram::signal(int number) {
    if (process_ > 0 && !exitCode_) {
        kill(process_, number);
    }
}

std::optional<int> ChildProgram::waitForExit(int limitMilliseconds) {
    using namespace std::chrono;
    if (process_ <= 0) {
        return cannotStart;
    }
    auto limit = steady_clock::now() + milliseconds(limitMilliseconds);
    while (!exitCode_) {
        int status = 0;
        if (waitpid(process_, &status, WNOHANG) == process_) {
            exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        } else if (steady_clock::now() >= limit) {
            break;
        } else {
            std::this_thread::sleep_for(2ms);
        }
    }
    return exitCode_;
}
