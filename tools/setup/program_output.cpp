// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/program_output.h"

#include "platform/files.h"
#include "platform/process.h"
#include "setup/whole_file.h"

#include <filesystem>
#include <random>

namespace {

namespace fs = std::filesystem;

// A folder of its own among the temporary files, removed with its content at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::error_code error;
        std::random_device random;
        const fs::path parent = fs::temp_directory_path(error);
        do {
            path_ = parent / ("kestravox-setup." + std::to_string(random()));
        } while (!fs::create_directory(path_, error) && !error);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string pathOf(const char* name) const { return (path_ / name).string(); }

private:
    fs::path path_;
};

// Returns whether the program has ended by itself with code 0.
bool waitForSuccess(HANDLE process, unsigned limit) {
    if (WaitForSingleObject(process, limit) != WAIT_OBJECT_0) {
        TerminateProcess(process, 1);
        WaitForSingleObject(process, INFINITE);
        return false;
    }
    DWORD exitCode = 1;
    return GetExitCodeProcess(process, &exitCode) && exitCode == 0;
}

} // namespace

std::optional<std::string> outputOf(const std::string& commandLine, unsigned limit) {
    const TemporaryFolder folder;
    const std::string outputPath = folder.pathOf("output");
    const HANDLE output = CreateFileA(outputPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    std::string line = commandLine;
    PROCESS_INFORMATION process{};
    bool succeeded = false;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &process)) {
        succeeded = waitForSuccess(process.hProcess, limit);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    CloseHandle(output);
    return succeeded ? readWholeFile(outputPath) : std::nullopt;
}
