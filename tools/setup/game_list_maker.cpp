// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/game_list_maker.h"

#include "catalogue/game_catalogue.h"
#include "extras/refresh_list.h"
#include "launch/list_generation.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/text_file.h"

#include <cstdint>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr char newListFile[] = "listinfo.dat.part";
constexpr char xmlFile[] = "listinfo.xml.part";

// A program with its standard input and output redirected to files; a null path is the null device.
class RedirectedProgram {
public:
    RedirectedProgram(const std::string& commandLine, const std::string& folder, const char* inputPath,
                      const char* outputPath) {
        input_ = inputPath ? CreateFileA(inputPath, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr)
                           : nullptr;
        output_ = CreateFileA(outputPath, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
        STARTUPINFOA startup{};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = input_;
        startup.hStdOutput = output_;
        std::string line = commandLine;
        started_ =
            output_ != INVALID_HANDLE_VALUE && CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0,
                                                              nullptr, folder.c_str(), &startup, &process_);
    }
    ~RedirectedProgram() {
        if (started_) {
            TerminateProcess(process_.hProcess, 1);
            CloseHandle(process_.hProcess);
            CloseHandle(process_.hThread);
        }
        CloseHandle(input_);
        CloseHandle(output_);
    }
    RedirectedProgram(const RedirectedProgram&) = delete;
    RedirectedProgram& operator=(const RedirectedProgram&) = delete;

    bool hasStarted() const { return started_; }

    // Waits up to this many milliseconds. Returns whether the program has ended.
    bool waitFor(DWORD milliseconds) const {
        return WaitForSingleObject(process_.hProcess, milliseconds) != WAIT_TIMEOUT;
    }

    bool hasSucceeded() const {
        DWORD exitCode = 1;
        return GetExitCodeProcess(process_.hProcess, &exitCode) && exitCode == 0;
    }

private:
    HANDLE input_ = nullptr;
    HANDLE output_ = nullptr;
    PROCESS_INFORMATION process_{};
    bool started_ = false;
};

// Returns the size of the file that is written under this name; it has a temporary name until it is closed.
std::uintmax_t megabytesOf(const char* name) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(std::string(name) + ".new~", error);
    return error ? 0 : size >> 20;
}

std::string runStep(const std::string& what, const std::string& commandLine, const std::string& folder,
                    const char* inputPath, const char* outputPath, const ListProgress& progress) {
    constexpr DWORD progressInterval = 200; // milliseconds
    const RedirectedProgram program(commandLine, folder, inputPath, outputPath);
    if (!program.hasStarted()) {
        return commandLine + " cannot be started.";
    }
    while (!program.waitFor(progressInterval)) {
        if (!progress(what + ": " + std::to_string(megabytesOf(outputPath)) + " MB")) {
            return "Stopped.";
        }
    }
    return program.hasSucceeded() ? "" : commandLine + " ended with an error.";
}

// Runs both programs. The files are relative to the current directory.
std::string runSteps(const std::string& emulatorCommand, const ListProgress& progress) {
    std::error_code error;
    const std::string folder = fs::current_path(error).string();
    std::string failure = runStep("The emulator lists its games", emulatorCommand + listingOption, folder,
                                  nullptr, xmlFile, progress);
    if (failure.empty()) {
        failure = runStep("The list is made", listConverter, folder, xmlFile, newListFile, progress);
    }
    if (failure.empty() && fs::file_size(newListFile, error) == 0) {
        failure = "The emulator did not write a whole list of games.";
    }
    if (failure.empty()) {
        fs::rename(newListFile, listFile, error);
        failure = error ? "The file listinfo.dat cannot be replaced." : "";
    }
    if (failure.empty()) {
        noteListEmulator(emulatorCommand);
    }
    fs::remove(xmlFile, error);
    fs::remove(newListFile, error);
    return failure;
}

} // namespace

std::string makeGameList(const std::string& emulatorCommand, const std::string& folder,
                         const ListProgress& progress) {
    std::error_code error;
    fs::create_directories(folder, error);
    const fs::path former = fs::current_path(error);
    fs::current_path(folder, error);
    if (error) {
        return "The folder " + folder + " cannot be used.";
    }
    std::string failure = runSteps(emulatorCommand, progress);
    fs::current_path(former, error);
    return failure;
}

bool loadGameListFrom(const std::string& folder) {
    freeGameList();
    FILE* list = openTextFile((fs::path(folder) / listFile).string().c_str());
    if (list) {
        readGameList(list);
        std::fclose(list);
    }
    return gameCount > 0;
}

void removeGameList(const std::string& folder) {
    std::error_code error;
    fs::remove(fs::path(folder) / listFile, error);
    fs::remove(fs::path(folder) / listStampFile, error);
}
