// SPDX-License-Identifier: GPL-3.0-or-later
#include "launch/process_runner.h"

#include "app/error_box.h"
#include "app/window_state.h"
#include "input/controls.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/module.h"
#include "platform/window.h"

#include <string>

namespace {

constexpr BYTE emulatorKey = 0x5A;         // the letter Z
constexpr DWORD emulatorStartDelay = 1000; // milliseconds

void showFailure(const std::string& text) {
    showError(mainWindow, text.c_str());
}

void restoreAfterRun() {
    SetConsoleTitleA("KESTRAVOX");
    flushKeys();
}

void pressEmulatorKey() {
    Sleep(emulatorStartDelay);
    keybd_event(emulatorKey, 0, 0, 0);
    keybd_event(emulatorKey, 0, KEYEVENTF_KEYUP, 0);
}

// The parameters of CreateProcessA that all run functions share.
struct StartParameters {
    SECURITY_ATTRIBUTES security{};
    STARTUPINFOA startup{};
};

StartParameters makeStartParameters() {
    static char desktop[] = "winsta0\\default";
    StartParameters parameters;
    parameters.security.nLength = sizeof(parameters.security);
    parameters.security.bInheritHandle = TRUE;
    parameters.startup.cb = sizeof(parameters.startup);
    parameters.startup.lpDesktop = desktop;
    parameters.startup.dwFlags = STARTF_USESHOWWINDOW;
    parameters.startup.wShowWindow = SW_HIDE;
    return parameters;
}

HANDLE createOutputFile(const char* path, SECURITY_ATTRIBUTES* security) {
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, security, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        showFailure(std::string("Failed to create file [") + path + "]!");
    }
    return file;
}

int runRedirected(char* commandLine, const char* workingDirectory, StartParameters& parameters, HANDLE input,
                  HANDLE output) {
    parameters.startup.dwFlags |= STARTF_USESTDHANDLES;
    parameters.startup.hStdInput = input;
    parameters.startup.hStdOutput = output;
    parameters.startup.hStdError = output;
    return runProcess(commandLine, workingDirectory, &parameters.startup, &parameters.security, nullptr, 0);
}

} // namespace

int runProcess(char* commandLine, const char* workingDirectory, STARTUPINFOA* startupInfo,
               SECURITY_ATTRIBUTES* securityAttributes, DWORD* exitCode, int gameRun) {
    // CreateProcessA may modify the command line; the message shows the original.
    const std::string originalCommandLine = commandLine;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine, securityAttributes, securityAttributes, TRUE, 0, nullptr,
                        workingDirectory, startupInfo, &process)) {
        showFailure("Failed to execute [" + originalCommandLine + "]!");
        restoreAfterRun();
        return 0;
    }
    if (gameRun == 1) {
        pressEmulatorKey();
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    if (exitCode && gameRun != 0 && !GetExitCodeProcess(process.hProcess, exitCode)) {
        showFailure("GetExitCodeProcess failed!");
    }
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    restoreAfterRun();
    return 1;
}

int runToFile(char* commandLine, const char* workingDirectory, const char* outputPath) {
    StartParameters parameters = makeStartParameters();
    const HANDLE output = createOutputFile(outputPath, &parameters.security);
    if (output == INVALID_HANDLE_VALUE) {
        return 0;
    }
    const int result =
        runRedirected(commandLine, workingDirectory, parameters, GetStdHandle(STD_INPUT_HANDLE), output);
    CloseHandle(output);
    return result;
}

int runFilter(char* commandLine, const char* workingDirectory, const char* inputPath,
              const char* outputPath) {
    StartParameters parameters = makeStartParameters();
    const HANDLE output = createOutputFile(outputPath, &parameters.security);
    if (output == INVALID_HANDLE_VALUE) {
        return 0;
    }
    const HANDLE input = CreateFileA(inputPath, GENERIC_READ, FILE_SHARE_READ, &parameters.security,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (input == INVALID_HANDLE_VALUE) {
        showFailure(std::string("Failed to open file [") + inputPath + "]!");
        CloseHandle(output);
        return 0;
    }
    const int result = runRedirected(commandLine, workingDirectory, parameters, input, output);
    CloseHandle(input);
    CloseHandle(output);
    return result;
}

int runAttached(char* commandLine, const char* workingDirectory, DWORD* exitCode, int gameRun) {
    StartParameters parameters = makeStartParameters();
    return runProcess(commandLine, workingDirectory, &parameters.startup, &parameters.security, exitCode,
                      gameRun);
}
