#include "launch/process_runner.h"

#include "app/error_box.h"
#include "app/window_state.h"
#include "input/controls.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/keys.h"
#include "platform/module.h"
#include "platform/window.h"

#include <string>

namespace {

constexpr BYTE emulatorKey = 0x5A; // the letter Z
constexpr DWORD emulatorStartDelay = 1000;

void showFailure(const std::string& text) {
    showError(mainWindow, text.c_str());
}

void settleAfterRun() {
    SetConsoleTitleA("KESTRAVOX");
    flushKeys();
}

void pressEmulatorKey() {
    Sleep(emulatorStartDelay);
    keybd_event(emulatorKey, 0, 0, 0);
    keybd_event(emulatorKey, 0, KEYEVENTF_KEYUP, 0);
}

// The records that every form of a run fills.
struct RunRecords {
    SECURITY_ATTRIBUTES security{};
    STARTUPINFOA startup{};
};

RunRecords makeRecords() {
    static char desktop[] = "winsta0\\default";
    RunRecords records;
    records.security.nLength = sizeof(records.security);
    records.security.bInheritHandle = TRUE;
    records.startup.cb = sizeof(records.startup);
    records.startup.lpDesktop = desktop;
    records.startup.dwFlags = STARTF_USESHOWWINDOW;
    records.startup.wShowWindow = SW_HIDE;
    return records;
}

HANDLE createOutput(const char* path, SECURITY_ATTRIBUTES* security) {
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, security, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        showFailure(std::string("Failed to create file [") + path + "]!");
    }
    return file;
}

int runRedirected(char* commandLine, const char* workingDirectory, RunRecords& records, HANDLE input,
                  HANDLE output) {
    records.startup.dwFlags |= STARTF_USESTDHANDLES;
    records.startup.hStdInput = input;
    records.startup.hStdOutput = output;
    records.startup.hStdError = output;
    return runProcess(commandLine, workingDirectory, &records.startup, &records.security, nullptr, 0);
}

} // namespace

int runProcess(char* commandLine, const char* workingDirectory, STARTUPINFOA* startupInfo,
               SECURITY_ATTRIBUTES* securityAttributes, DWORD* exitCode, int gameRun) {
    // Splitting a command line may write into it, and the message shows what was asked for.
    const std::string asked = commandLine;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine, securityAttributes, securityAttributes, TRUE, 0, nullptr,
                        workingDirectory, startupInfo, &process)) {
        showFailure("Failed to execute [" + asked + "]!");
        settleAfterRun();
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
    settleAfterRun();
    return 1;
}

int runToFile(char* commandLine, const char* workingDirectory, const char* outputPath) {
    RunRecords records = makeRecords();
    const HANDLE output = createOutput(outputPath, &records.security);
    if (output == INVALID_HANDLE_VALUE) {
        return 0;
    }
    const int result =
        runRedirected(commandLine, workingDirectory, records, GetStdHandle(STD_INPUT_HANDLE), output);
    CloseHandle(output);
    return result;
}

int runFilter(char* commandLine, const char* workingDirectory, const char* inputPath,
              const char* outputPath) {
    RunRecords records = makeRecords();
    const HANDLE output = createOutput(outputPath, &records.security);
    if (output == INVALID_HANDLE_VALUE) {
        return 0;
    }
    const HANDLE input = CreateFileA(inputPath, GENERIC_READ, FILE_SHARE_READ, &records.security,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (input == INVALID_HANDLE_VALUE) {
        showFailure(std::string("Failed to open file [") + inputPath + "]!");
        CloseHandle(output);
        return 0;
    }
    const int result = runRedirected(commandLine, workingDirectory, records, input, output);
    CloseHandle(input);
    CloseHandle(output);
    return result;
}

int runAttached(char* commandLine, const char* workingDirectory, DWORD* exitCode, int gameRun) {
    RunRecords records = makeRecords();
    return runProcess(commandLine, workingDirectory, &records.startup, &records.security, exitCode, gameRun);
}
