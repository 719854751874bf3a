#include "platform/process.h"

#include "platform/display.h"
#include "platform/paths.h"
#include "platform/program_search.h"
#include "platform/sound.h"
#include "platform/system_object.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

// Children whose handle was closed before they ended. They are reaped by and by, so that none stays a zombie
// for long.
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

    // Looks without waiting, and reaps the child once.
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
    FileDescriptor ending; // readable once the child has ended; closed on a machine that has no such thing
    bool ended = false;
    std::optional<DWORD> exitCode;
};

struct ChildThread : SystemObject {};

class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes, &signals);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

bool isRedirected(const STARTUPINFOA* startup) {
    return startup && (startup->dwFlags & STARTF_USESTDHANDLES) != 0;
}

// A stream that is not given, or by no file, is an empty one.
void redirect(posix_spawn_file_actions_t& actions, HANDLE handle, int stream) {
    if (const OpenFile* file = findSystemObject<OpenFile>(handle)) {
        posix_spawn_file_actions_adddup2(&actions, file->descriptor.number(), stream);
    } else {
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
    }
}

void addActions(posix_spawn_file_actions_t& actions, const std::string& workingDirectory,
                const STARTUPINFOA* startup) {
    if (!workingDirectory.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions, workingDirectory.c_str());
    }
    if (isRedirected(startup)) {
        redirect(actions, startup->hStdInput, STDIN_FILENO);
        redirect(actions, startup->hStdOutput, STDOUT_FILENO);
        redirect(actions, startup->hStdError, STDERR_FILENO);
    }
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

// A parent that ignores the end of its children would never learn their exit code.
void restoreChildSignal() {
    struct sigaction action {};
    if (sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
        action.sa_handler = SIG_DFL;
        sigaction(SIGCHLD, &action, nullptr);
    }
}

// Tries the programs in turn, since what has the right name can be of another machine. 0 when none starts.
pid_t startFirst(const std::vector<std::string>& programs, std::vector<std::string>& words,
                 const SpawnSettings& settings) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    for (const std::string& program : programs) {
        pid_t child = 0;
        if (posix_spawn(&child, program.c_str(), &settings.actions, &settings.attributes, arguments.data(),
                        environ) == 0) {
            return child;
        }
    }
    return 0;
}

} // namespace

BOOL CreateProcessA(LPCSTR applicationName, LPSTR commandLine, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*,
                    BOOL, DWORD, LPVOID environment, LPCSTR workingDirectory, const STARTUPINFOA* startup,
                    PROCESS_INFORMATION* process) {
    if (applicationName || environment || !commandLine) {
        return FALSE;
    }
    reapAbandoned();
    restoreChildSignal();
    const std::string folder = nativePath(workingDirectory ? workingDirectory : "");
    Invocation invocation = resolveInvocation(commandLine, folder);
    if (invocation.programs.empty()) {
        return FALSE;
    }
    SpawnSettings settings;
    addActions(settings.actions, folder, startup);
    // A child with redirected streams only computes. Any other may draw at once, and on a console without a
    // window system it can do so only when nobody else holds the screen.
    const bool getsDisplay = !isRedirected(startup);
    if (getsDisplay) {
        soundGiveUp();
        displayGiveUp();
    }
    const pid_t child = startFirst(invocation.programs, invocation.words, settings);
    if (child == 0) {
        if (getsDisplay) {
            displayTakeBack();
        }
        return FALSE;
    }
    process->hProcess = insertSystemObject(std::make_unique<ChildProcess>(child, getsDisplay));
    process->hThread = insertSystemObject(std::make_unique<ChildThread>());
    process->dwProcessId = static_cast<DWORD>(child);
    process->dwThreadId = static_cast<DWORD>(child);
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE process, DWORD) {
    constexpr int keepAliveInterval = 50; // milliseconds
    ChildProcess* child = findSystemObject<ChildProcess>(process);
    if (!child) {
        return WAIT_FAILED;
    }
    bool askedToEnd = false;
    while (!child->hasEnded()) {
        displayKeepAlive();
        if (!askedToEnd && displayCloseRequested()) {
            kill(child->number, SIGTERM);
            askedToEnd = true;
        }
        pollfd ending = {child->ending.number(), POLLIN, 0};
        poll(&ending, 1, keepAliveInterval);
    }
    child->returnDisplay();
    return WAIT_OBJECT_0;
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
