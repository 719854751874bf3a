// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/module.h"

#include "platform/files/file_io.h"
#include "platform/files/paths.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace {

std::string readCommandLine() {
    // The kernel terminates each word with a NUL. Quotes inside the name are removed, because they would end
    // the name too early when the tail is searched for.
    std::string words;
    if (const FileDescriptor file = openPlainFile("/proc/self/cmdline"); file.isOpen()) {
        constexpr std::size_t longestCommandLine = std::size_t{8} << 20; // above the kernel's limit
        readWhole(file, words, longestCommandLine);
    }
    if (!words.empty() && words.back() == '\0') {
        words.pop_back();
    }
    const std::size_t nameEnd = std::min(words.find('\0'), words.size());
    std::string name = words.substr(0, nameEnd);
    std::erase(name, '"');
    std::replace(words.begin(), words.end(), '\0', ' ');
    return '"' + name + '"' + words.substr(nameEnd);
}

} // namespace

LPSTR GetCommandLineA() {
    static std::string commandLine = readCommandLine();
    return commandLine.data();
}

HMODULE GetModuleHandleA(LPCSTR name) {
    static char programImage; // its address is the handle: constant and never null
    return name ? nullptr : reinterpret_cast<HMODULE>(&programImage);
}

DWORD GetModuleFileNameA(HMODULE, LPSTR buffer, DWORD size) {
    std::string path = programPath();
    std::replace(path.begin(), path.end(), '/', '\\');
    const std::size_t copied = std::min<std::size_t>(path.size(), size - 1);
    std::memcpy(buffer, path.data(), copied);
    buffer[copied] = '\0';
    return copied < path.size() ? size : static_cast<DWORD>(copied);
}

BOOL SetConsoleTitleA(LPCSTR title) {
    if (isatty(STDOUT_FILENO) != 1) {
        return FALSE;
    }
    std::string sequence = "\033]0;" + std::string(title);
    // A control character would end the sequence, and the terminal would interpret the rest of the title.
    sequence.erase(
        std::remove_if(sequence.begin() + 1, sequence.end(),
                       [](unsigned char character) { return character < ' ' || character == 0x7F; }),
        sequence.end());
    sequence += '\a';
    return writeWhole(STDOUT_FILENO, sequence) ? TRUE : FALSE;
}
