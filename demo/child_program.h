// A program that runs beside this one and never outlives it: the virtual
// display, the front end under test. Used by the tour and the end-to-end
// tests. No shell is involved; the words are passed as they are.
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

struct ChildOptions {
    std::vector<std::string> words{};       // the program (with a slash, or sought on PATH) and its arguments
    std::string folder{};                   // working directory; empty for that of this program
    std::vector<std::string> environment{}; // "NAME=value", added to that of this program
    std::string outputPath{};               // standard output and error go there; empty leaves them alone
    int passedDescriptor = -1;              // stays open in the child
    std::optional<unsigned long> fileSizeLimit{}; // bytes; a longer write fails, as on a full disk
};

class ChildProgram {
public:
    explicit ChildProgram(const ChildOptions& options);
    // Kills it, and what it started in its process group, when it still runs.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    bool started() const { return process > 0; }
    pid_t id() const { return process; }
    bool running();
    void signal(int number);

    // Its exit code, or 128 and the signal that ended it; nothing when it still runs after that time.
    std::optional<int> waitForExit(int limitMilliseconds);

private:
    pid_t process = -1;
    std::optional<int> exitCode;
};
