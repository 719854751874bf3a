// SPDX-License-Identifier: GPL-3.0-or-later
// A child process that never outlives this one: the virtual display, the front end under test. Used by the
// tour and the end-to-end tests. No shell is involved; the arguments are passed unchanged.
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

struct ChildOptions {
    std::vector<std::string> words{}; // the program (a path, or a name to search on PATH) and its arguments
    std::string folder{};             // working directory; empty inherits it
    std::vector<std::string> environment{};       // "NAME=value", added to the inherited environment
    std::string outputPath{};                     // for standard output and error; empty inherits them
    int passedDescriptor = -1;                    // stays open in the child
    std::optional<unsigned long> fileSizeLimit{}; // bytes; a longer write fails, as on a full disk
};

class ChildProgram {
public:
    explicit ChildProgram(const ChildOptions& options);
    // Kills the process group of the child if the child is still running.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    bool started() const { return process_ > 0; }
    pid_t id() const { return process_; }
    bool running();
    void signal(int number);

    // The exit code, or 128 + the signal that ended the child; nothing if it is still running after that
    // time.
    std::optional<int> waitForExit(int limitMilliseconds);

private:
    pid_t process_ = -1;
    std::optional<int> exitCode_;
};
