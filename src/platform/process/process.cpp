// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process.h"

#include "platform/base/end_request.h"
#include "platform/base/heap.h"
#include "platform/clock/waiting.h"
#include "platform/display/display.h"
#include "platform/files/paths.h"
#include "platform/files/system_object.h"
#include "platform/process/child_end.h"
#include "platform/process/child_start.h"
#include "platform/program_search.h"
#include "platform/sound.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

// Children whose handle was closed before they ended. They are reaped when the next program is started.
std::vector<pid_t> abandonedChildren;

void reapAbandoned() {
    std::erase_if(abandonedChildren, [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; });
}

struct ChildProcess : SystemObject {
    ChildProcess(pid_t childNumber, bool childHasDisplay)
        : number(childNumber), hasDisplay(childHasDisplay),
          ending(static_cast<int>(syscall(SYS_pidfd_open, childNumber, 0))) {}
    ~ChildProcess() override {
        returnDisplay();
        if (!hasEnded()) {
            abandonedChildren.push_back(number);
        }
    }

    // Polls without waiting, and reaps the child once.
    bool hasEnded() {
        int status = 0;
        const pid_t result = ended ? 0 : waitpid(number, &status, WNOHANG);
        if (result == number) {
            exitCode = static_cast<DWORD>(WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status));
        }
        ended = ended || result != 0;
        return ended;
    }

    void returnDisplay() {
        if (std::exchange(hasDisplay, false)) {
            displayTakeBack();
        }
    }

    pid_t number;
    bool hasDisplay;
    FileDescriptor ending; // a pidfd, readable once the child has ended; not open if the kernel lacks it
    bool ended = false;
    std::optional<DWORD> exitCode;
};

struct ChildThread : SystemObject {};

bool isRedirected(const STARTUPINFOA* startup) {
    return startup && (startup->dwFlags & STARTF_USESTDHANDLES) != 0;
}

int streamOf(HANDLE handle) {
    const OpenFile* file = findSystemObject<OpenFile>(handle);
    return file ? file->descriptor.number() : noStream;
}

std::array<int, 3> streamsOf(const STARTUPINFOA* startup) {
    if (!isRedirected(startup)) {
        return {inheritedStream, inheritedStream, inheritedStream};
    }
    return {streamOf(startup->hStdInput), streamOf(startup->hStdOutput), streamOf(startup->hStdError)};
}

// Exit codes are lost while SIGCHLD is ignored, which this process may have inherited.
void restoreChildSignal() {
    struct sigaction action {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
        action.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, &action, nullptr);
    }
}

} // namespace

BOOL CreateProcessA(LPCSTR applicationName, LPSTR commandLine, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*,
                    BOOL, DWORD flags, LPVOID environment, LPCSTR workingDirectory,
                    const STARTUPINFOA* startup, PROCESS_INFORMATION* process) {
    if (applicationName || environment || !commandLine) {
        return FALSE;
    }
    reapAbandoned();
    restoreChildSignal();
    const std::string folder = nativePath(workingDirectory ? workingDirectory : "");
    const Invocation invocation = resolveInvocation(commandLine, folder);
    if (invocation.programs.empty()) {
        return FALSE;
    }
    // A child with redirected streams does not draw. Any other may draw immediately, and on a console without
    // a window system only one process can own the screen.
    const bool getsDisplay = !isRedirected(startup);
    if (getsDisplay) {
        soundGiveUp();
        displayGiveUp();
        returnFreeMemory();
    }
    const bool detached = (flags & DETACHED_PROCESS) != 0;
    const pid_t child =
        startChild({invocation.programs, invocation.words, folder, streamsOf(startup), detached});
    if (child == 0) {
        if (getsDisplay && !detached) {
            displayTakeBack();
        }
        return FALSE;
    }
    if (detached) {
        abandonedChildren.push_back(child);
        *process = {nullptr, nullptr, static_cast<DWORD>(child), static_cast<DWORD>(child)};
        return TRUE;
    }
    process->hProcess = insertSystemObject(std::make_unique<ChildProcess>(child, getsDisplay));
    process->hThread = insertSystemObject(std::make_unique<ChildThread>());
    process->dwProcessId = static_cast<DWORD>(child);
    process->dwThreadId = static_cast<DWORD>(child);
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE process, DWORD timeout) {
    constexpr int keepAliveInterval = 50; // milliseconds
    const auto start = std::chrono::steady_clock::now();
    const auto isLate = [&] {
        return timeout != INFINITE &&
               std::chrono::steady_clock::now() - start >= std::chrono::milliseconds(timeout);
    };
    ChildProcess* child = findSystemObject<ChildProcess>(process);
    if (!child) {
        return WAIT_FAILED;
    }
    ChildEnd end(child->number);
    const auto waitOneInterval = [&] {
        keepAlive();
        end.poll(child->hasEnded());
        pollfd ending = {child->hasEnded() ? -1 : child->ending.number(), POLLIN, 0};
        poll(&ending, 1, keepAliveInterval);
    };
    while (!child->hasEnded() && !end.isOver()) {
        if (isLate()) {
            return WAIT_TIMEOUT;
        }
        waitOneInterval();
    }
    child->returnDisplay();
    // A lost display may have ended the child before the loss is noticed here.
    while (endRequested() && !end.isOver()) {
        waitOneInterval();
    }
    return child->hasEnded() ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL TerminateProcess(HANDLE process, UINT) {
    ChildProcess* child = findSystemObject<ChildProcess>(process);
    if (!child || child->hasEnded() || killpg(child->number, SIGKILL) != 0) {
        return FALSE;
    }
    child->returnDisplay();
    return TRUE;
}

BOOL GetExitCodeProcess(HANDLE process, DWORD* exitCode) {
    ChildProcess* child = findSystemObject<ChildProcess>(process);
    if (!child || !child->hasEnded() || !child->exitCode) {
        return FALSE;
    }
    *exitCode = *child->exitCode;
    return TRUE;
}

HANDLE GetStdHandle(DWORD which) {
    static HANDLE standardInput = nullptr;
    if (which != STD_INPUT_HANDLE) {
        return nullptr;
    }
    if (!findSystemObject<OpenFile>(standardInput)) {
        auto file = std::make_unique<OpenFile>();
        file->descriptor = FileDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        standardInput = file->descriptor.isOpen() ? insertSystemObject(std::move(file)) : nullptr;
    }
    return standardInput;
}
