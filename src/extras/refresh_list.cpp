// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/refresh_list.h"

#include "config/settings.h"
#include "launch/emulator_folder.h"
#include "launch/list_generation.h"
#include "overlays/message_window.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/program_search.h"
#include "platform/screen.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr char newListFile[] = "listinfo.new"; // the converter's output until it has been checked

// Returns the last `limit` bytes of the file; empty when there is none.
std::string readEnd(const char* path, std::int64_t limit) {
    FileState state{};
    FILE* file = getFileState(path, &state) ? openBinaryFile(path) : nullptr;
    if (!file) {
        return {};
    }
    const std::int64_t length = std::min(state.size, limit);
    std::string text(static_cast<std::size_t>(length), '\0');
    std::fseek(file, static_cast<long>(state.size - length), SEEK_SET);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    std::fclose(file);
    return text;
}

// Each block of a list ends with a line that has nothing but a closing parenthesis; so does a whole list.
bool endsWithBlock(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t last = text.find_last_not_of(blanks);
    if (last == std::string_view::npos || text[last] != ')') {
        return false;
    }
    const std::size_t before = text.substr(0, last).find_last_not_of(" \t");
    return before != std::string_view::npos && text[before] == '\n';
}

bool isWholeList(const char* path) {
    constexpr std::int64_t checkedEnd = 4096;
    return endsWithBlock(readEnd(path, checkedEnd));
}

std::string stampOf(const std::string& program) {
    FileState state{};
    getFileState(program.c_str(), &state);
    return program + "\nsize " + std::to_string(state.size) + "\ntimes " + std::to_string(state.contentTime) +
           " " + std::to_string(state.anyTime) + "\n";
}

// Runs a program with redirected streams. Its errors are discarded: they do not belong to the output. Returns
// whether it was started and ended with code 0.
bool runToEnd(std::string commandLine, HANDLE input, HANDLE output) {
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input;
    startup.hStdOutput = output;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        emulatorFolder().c_str(), &startup, &process)) {
        return false;
    }
    DWORD exitCode = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    const bool good = GetExitCodeProcess(process.hProcess, &exitCode) && exitCode == 0;
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return good;
}

// Runs a program from one file, or nothing, to another.
bool runBetween(const std::string& commandLine, const char* inputPath, const char* outputPath) {
    const HANDLE input = inputPath ? CreateFileA(inputPath, GENERIC_READ, FILE_SHARE_READ, nullptr,
                                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)
                                   : nullptr;
    const HANDLE output = CreateFileA(outputPath, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool opened = input != INVALID_HANDLE_VALUE && output != INVALID_HANDLE_VALUE;
    const bool good = opened && runToEnd(commandLine, input, output);
    CloseHandle(input);
    CloseHandle(output); // now the file has its name
    return good;
}

// Returns null when the list has been replaced, else what failed.
const char* makeList(const std::string& listCommand) {
    showMessage(listingMessage);
    const bool listed = runBetween(listCommand, nullptr, listXmlFile);
    hideMessage();
    if (!listed) {
        return "the emulator did not write its game list";
    }
    showMessage(conversionMessage);
    const bool converted = runBetween(listConverter, listXmlFile, newListFile);
    hideMessage();
    const std::string list = converted ? readEnd(newListFile, INT64_MAX) : std::string();
    std::remove(newListFile);
    if (!endsWithBlock(list)) {
        return "what the emulator wrote is no whole game list";
    }
    if (GetSystemMetrics(SM_SHUTTINGDOWN) != 0 || !replaceFileText(listFile, list)) {
        return "the list file could not be written";
    }
    std::remove(listXmlFile);
    return nullptr;
}

} // namespace

bool refreshGameList() {
    const std::string listCommand = settings.mameExe + std::string(listingOption);
    const std::string emulator = findProgram(listCommand);
    const char* problem = "the emulator was not found";
    if (!emulator.empty()) {
        // Taken before the run: an emulator that is replaced during it is noticed at the next start.
        const std::string stamp = stampOf(emulator);
        constexpr std::int64_t longestStamp = 16384;
        if (readEnd(listStampFile, longestStamp) == stamp && isWholeList(listFile)) {
            return false;
        }
        problem = makeList(listCommand);
        if (!problem) {
            replaceFileText(listStampFile, stamp);
        }
    }
    if (problem && GetSystemMetrics(SM_SHUTTINGDOWN) == 0) {
        writeDiagnostic(standardError, std::string("The game list was not made anew: ") + problem + ".");
    }
    return !problem;
}

void noteListEmulator(const std::string& commandLine) {
    replaceFileText(listStampFile, stampOf(findProgram(commandLine)));
}
