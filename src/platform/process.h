// Starting an outside program, waiting for it, its exit code, and the streams it is given. Called by the
// process runner. No shell is ever involved: a command line is split into words by the documented rules and
// started directly.
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
constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

// Starts a program. The first word of commandLine names it: a name without a separator is looked for beside
// the running program, in workingDirectory, in the current directory and on PATH, a path is taken from the
// current directory; each under the name given, then without a trailing ".exe". A path without quotes may
// hold blanks: when its first word is no program, each longer beginning of the line is tried. The child gets
// the working directory (the current one when null), the environment, the three standard streams (those of
// startup with STARTF_USESTDHANDLES) and no other open file; the request to hide its window is the child's
// own affair. FALSE when it cannot be started: no such program, a directory, not executable, no such working
// directory. Both handles of `process` must be closed. applicationName and environment must be null; the
// attributes and flags are not used.
BOOL CreateProcessA(LPCSTR applicationName, LPSTR commandLine, SECURITY_ATTRIBUTES* processAttributes,
                    SECURITY_ATTRIBUTES* threadAttributes, BOOL inheritHandles, DWORD flags,
                    LPVOID environment, LPCSTR workingDirectory, const STARTUPINFOA* startup,
                    PROCESS_INFORMATION* process);

// Waits for the end of a process; timeout must be INFINITE. Meanwhile the last picture stays on the screen,
// the display's events are drained and no message is dispatched. When the program is asked to end from
// outside, the child's process group is sent SIGTERM, after 2 s SIGHUP and after 4 s SIGKILL (SIGHUP after
// 0.5 s and SIGKILL after 1.5 s when the display has been lost), and the wait goes on until the whole group
// has ended. A child without redirected streams may draw by itself, so the display is given up for its start
// and taken back after its end: in front, with the keyboard focus, shown again. WAIT_OBJECT_0; WAIT_TIMEOUT
// for a child that has not ended after SIGKILL either; WAIT_FAILED at once on a handle that is no process.
DWORD WaitForSingleObject(HANDLE process, DWORD timeout);

// The exit code of a process that has ended: 0 to 255, or 128 plus the number of the signal that ended it.
// FALSE on a handle that is no process or one that has not ended.
BOOL GetExitCodeProcess(HANDLE process, DWORD* exitCode);

// The standard input of this program; the handle need not be closed. Null for any other number.
HANDLE GetStdHandle(DWORD which);
