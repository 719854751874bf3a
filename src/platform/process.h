// SPDX-License-Identifier: GPL-3.0-or-later
// External programs: starting one, waiting for it, its exit code and its standard streams. Called by the
// process runner. No shell is involved: a command line is split into words as command_line.h documents, and
// the program is started directly.
#pragma once

#include "platform/types.h"

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};

struct STARTUPINFOA {
    DWORD cb;
    LPSTR lpReserved;
    LPSTR lpDesktop;
    LPSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    BYTE* lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
};

struct PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
};

constexpr DWORD STARTF_USESHOWWINDOW = 0x0001;
constexpr DWORD STARTF_USESTDHANDLES = 0x0100;
constexpr DWORD STD_INPUT_HANDLE = static_cast<DWORD>(-10);
constexpr DWORD DETACHED_PROCESS = 0x00000008;
constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

// Starts a program. The first word of commandLine names it. A name without a separator is searched for in the
// folder of the running program, workingDirectory, the current directory and PATH; a path is relative to the
// current directory. Each candidate is tried under the given name, then without a trailing ".exe". An
// unquoted path may contain spaces: when its first word is not a program, each longer prefix of the line is
// tried.
//
// The child gets the working directory (the current one when null), the environment, the three standard
// streams (those of `startup` with STARTF_USESTDHANDLES) and no other open file. wShowWindow is ignored.
// applicationName and environment must be null; the attributes and all flags but one are ignored. The caller
// must close both handles of `process`. FALSE when the program cannot be started: not found, a directory, not
// executable, or no such working directory.
//
// A child does not outlive this program, except with DETACHED_PROCESS: then it leads a session of its own,
// and its handles are null, since this program neither waits for it nor ends it. Such a child is for the end
// of the program: the display and the wave device are released for it and not taken back, even on failure.
BOOL CreateProcessA(LPCSTR applicationName, LPSTR commandLine, SECURITY_ATTRIBUTES* processAttributes,
                    SECURITY_ATTRIBUTES* threadAttributes, BOOL inheritHandles, DWORD flags,
                    LPVOID environment, LPCSTR workingDirectory, const STARTUPINFOA* startup,
                    PROCESS_INFORMATION* process);

// Waits until a process ends, at most `timeout` milliseconds unless that is INFINITE. Meanwhile the last
// picture stays on the screen, the display's events are handled and no message is dispatched. When the
// program is asked to end from outside, the child's process group is sent SIGTERM, SIGHUP after 2 s and
// SIGKILL after 4 s (SIGHUP after 0.5 s and SIGKILL after 1.5 s when the display has been lost), and the wait
// continues until the whole group has ended. A child without redirected streams may draw, so CreateProcessA
// releases the display for it; this call takes the display back once the child has ended, raises the window,
// focuses it and shows it again. Returns WAIT_OBJECT_0, WAIT_TIMEOUT when the time is over or the child has
// not ended even after SIGKILL, or WAIT_FAILED immediately when the handle is not a process.
DWORD WaitForSingleObject(HANDLE process, DWORD timeout);

// Kills a process with its process group; it has ended once WaitForSingleObject says so. The exit code is
// ignored: it is that of a process killed by SIGKILL. FALSE when the handle is not a process or the process
// has ended.
BOOL TerminateProcess(HANDLE process, UINT exitCode);

// The exit code of a process that has ended: 0 to 255, or 128 plus the number of the signal that killed it.
// FALSE when the handle is not a process or the process has not ended.
BOOL GetExitCodeProcess(HANDLE process, DWORD* exitCode);

// The standard input of this program; the handle need not be closed. Null for anything but STD_INPUT_HANDLE.
HANDLE GetStdHandle(DWORD which);
