// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/emulator.h"

#include "setup/program_output.h"
#include "setup/whole_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace {

namespace fs = std::filesystem;

constexpr const char* usualNames[] = {"mame", "mame64"};
constexpr std::string_view usualFolders = "/usr/games:/usr/local/bin:/usr/local/games:/opt/mame";

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) {
            parts.emplace_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

bool isProgram(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    constexpr fs::perms anyExecute = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    return fs::is_regular_file(status) && (status.permissions() & anyExecute) != fs::perms::none;
}

std::string withHome(std::string value) {
    const std::string home = environment("HOME");
    constexpr std::string_view variable = "$HOME";
    for (std::size_t at = value.find(variable); at != value.npos;
         at = value.find(variable, at + home.size())) {
        value.replace(at, variable.size(), home);
    }
    return value;
}

// Reads lines of a name and a value with blanks between them; # starts a comment. Former values win.
void readOptions(std::string_view text, std::map<std::string, std::string>& options) {
    for (const std::string& line : split(text, '\n')) {
        const std::size_t nameEnd = line.find_first_of(" \t\r");
        const std::size_t value = line.find_first_not_of(" \t\r", nameEnd);
        if (line.front() != '#' && nameEnd != line.npos && value != line.npos) {
            const std::size_t valueEnd = line.find_last_not_of(" \t\r") + 1;
            std::string content = line.substr(value, valueEnd - value);
            if (content.size() >= 2 && content.front() == '"' && content.back() == '"') {
                content = content.substr(1, content.size() - 2);
            }
            options.emplace(line.substr(0, nameEnd), withHome(content));
        }
    }
}

} // namespace

std::vector<std::string> findEmulators() {
    std::vector<std::string> folders = split(environment("PATH"), ':');
    std::ranges::copy(split(usualFolders, ':'), std::back_inserter(folders));
    std::vector<std::string> found;
    for (const std::string& folder : folders) {
        for (const char* name : usualNames) {
            const fs::path path = fs::path(folder) / name;
            std::error_code error;
            const bool isNew = std::ranges::none_of(
                found, [&](const std::string& known) { return fs::equivalent(known, path, error); });
            if (path.is_absolute() && isProgram(path) && isNew) {
                found.push_back(path.string());
            }
        }
    }
    return found;
}

bool questionEmulator(const std::string& program, Emulator& emulator) {
    emulator = {program, "", {}};
    const std::string command = "\"" + program + "\"";
    const auto configuration = outputOf(command + " -showconfig");
    if (!configuration || configuration->find("rompath") == configuration->npos) {
        return false;
    }
    readOptions(*configuration, emulator.options);
    for (const std::string& folder : foldersOf(emulator, "inipath")) {
        if (const auto userInterface = readWholeFile((fs::path(folder) / "ui.ini").string())) {
            readOptions(*userInterface, emulator.options);
        }
    }
    const std::string version = outputOf(command + " -version").value_or("");
    emulator.version = version.substr(0, version.find_first_of("\r\n"));
    return true;
}

std::vector<std::string> foldersOf(const Emulator& emulator, const std::string& option) {
    const auto found = emulator.options.find(option);
    return found == emulator.options.end() ? std::vector<std::string>() : split(found->second, ';');
}
