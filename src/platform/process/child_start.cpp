// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process/child_start.h"

#include "platform/files/file_io.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

// Everything that the child needs between fork and exec, where it must not allocate memory.
struct PreparedStart {
    std::vector<const char*> programs;
    std::vector<char*> arguments;
    const char* folder;
    const std::array<int, 3>& streams;
    bool detached;
    pid_t parent;
};

PreparedStart prepare(const ChildStart& start) {
    const char* folder = start.folder.empty() ? nullptr : start.folder.c_str();
    PreparedStart prepared{{}, {}, folder, start.streams, start.detached, getpid()};
    for (const std::string& program : start.programs) {
        prepared.programs.push_back(program.c_str());
    }
    for (const std::string& word : start.words) {
        prepared.arguments.push_back(const_cast<char*>(word.c_str()));
    }
    prepared.arguments.push_back(nullptr);
    return prepared;
}

// --- In the child: async-signal-safe functions only ---

void resetSignals() {
    struct sigaction action {};
    for (int number = 1; number < NSIG; ++number) {
        action.sa_handler = number == SIGTTIN || number == SIGTTOU ? SIG_IGN : SIG_DFL;
        sigaction(number, &action, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool connectStreams(const std::array<int, 3>& streams) {
    for (int stream = 0; stream < static_cast<int>(streams.size()); ++stream) {
        int source = streams[static_cast<std::size_t>(stream)];
        if (source == inheritedStream) {
            continue;
        }
        if (source == noStream) {
            source = open("/dev/null", O_RDWR | O_CLOEXEC);
        }
        if (dup2(source, stream) != stream) {
            return false;
        }
    }
    return true;
}

// Marks all descriptors but the standard streams to be closed at the exec.
void closeOtherDescriptors() {
    constexpr unsigned closeOnExec = 4; // CLOSE_RANGE_CLOEXEC
    if (syscall(SYS_close_range, STDERR_FILENO + 1, ~0U, closeOnExec) == 0) {
        return;
    }
    const long limit = sysconf(_SC_OPEN_MAX);
    for (int descriptor = STDERR_FILENO + 1; descriptor < limit; ++descriptor) {
        fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    }
}

// Returns false when the parent has ended before the tie took effect.
bool tieToParent(pid_t parent) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    return getppid() == parent;
}

[[noreturn]] void execProgram(const PreparedStart& start, int report) {
    const bool mayStart = start.detached ? setsid() > 0 : tieToParent(start.parent);
    resetSignals();
    if (mayStart && (!start.folder || chdir(start.folder) == 0) && connectStreams(start.streams)) {
        closeOtherDescriptors();
        for (const char* program : start.programs) {
            execve(program, start.arguments.data(), environ);
        }
    }
    const char failed = 1;
    const ssize_t written = write(report, &failed, sizeof(failed));
    static_cast<void>(written);
    _exit(127);
}

// --- In this process ---

// Blocks all signals around the fork, so that no handler of this process runs in the child.
class BlockedSignals {
public:
    BlockedSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &previous_);
    }
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

private:
    sigset_t previous_{};
};

} // namespace

pid_t startChild(const ChildStart& start) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return 0;
    }
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    const PreparedStart prepared = prepare(start);
    pid_t child = 0;
    {
        const BlockedSignals blocked;
        child = fork();
        if (child == 0) {
            execProgram(prepared, writing.number());
        }
    }
    writing.close();
    char failed = 0;
    // A successful exec closes the pipe without a byte written to it.
    if (child > 0 && readSome(reading.number(), &failed, sizeof(failed)) == 0) {
        return child;
    }
    if (child > 0) {
        waitpid(child, nullptr, 0);
    }
    return 0;
}
