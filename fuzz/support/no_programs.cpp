// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/no_programs.h"

#include "platform/clock.h"
#include "platform/process.h"

bool programsStart = true;

BOOL CreateProcessA(LPCSTR, LPSTR, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*, BOOL, DWORD, LPVOID, LPCSTR,
                    const STARTUPINFOA*, PROCESS_INFORMATION* process) {
    *process = {};
    return programsStart ? TRUE : FALSE;
}

DWORD WaitForSingleObject(HANDLE, DWORD) {
    Sleep(300);
    return WAIT_OBJECT_0;
}

BOOL TerminateProcess(HANDLE, UINT) {
    return FALSE;
}

BOOL GetExitCodeProcess(HANDLE, DWORD* exitCode) {
    *exitCode = 0;
    return TRUE;
}

HANDLE GetStdHandle(DWORD) {
    return nullptr;
}
