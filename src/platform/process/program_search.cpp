// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/program_search.h"

#include "platform/files/paths.h"
#include "platform/process/command_line.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

bool isProgram(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

// Resolved here, because the child changes its working directory before the exec.
std::string absolutePath(const std::string& path) {
    if (path.starts_with('/')) {
        return path;
    }
    const std::unique_ptr<char, decltype(&std::free)> current(getcwd(nullptr, 0), std::free);
    return current ? std::string(current.get()).append("/").append(path) : std::string();
}

std::vector<std::string> searchFolders(const std::string& workingDirectory) {
    std::vector<std::string> folders = {programFolder(), absolutePath(workingDirectory), absolutePath(".")};
    const char* variable = std::getenv("PATH");
    std::string_view rest = variable ? variable : "";
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        folders.push_back(absolutePath(folder.empty() ? "." : std::string(folder)));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    }
    return folders;
}

// All programs that the name can mean, best match first.
std::vector<std::string> findPrograms(const std::string& name, const std::string& workingDirectory) {
    constexpr std::string_view suffix = ".exe";
    std::vector<std::string> places;
    if (name.empty()) {
        return places;
    }
    if (name.find('/') != std::string::npos) {
        places.push_back(absolutePath(name));
    } else {
        for (const std::string& folder : searchFolders(workingDirectory)) {
            places.push_back(folder + '/' + name);
        }
    }
    std::vector<std::string> programs;
    for (std::string& place : places) {
        if (isProgram(place)) {
            programs.push_back(place);
        }
        if (place.size() > suffix.size() &&
            strcasecmp(place.c_str() + place.size() - suffix.size(), suffix.data()) == 0) {
            place.resize(place.size() - suffix.size());
            if (isProgram(place)) {
                programs.push_back(place);
            }
        }
    }
    return programs;
}

} // namespace

Invocation resolveInvocation(std::string_view line, const std::string& workingDirectory) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    Invocation result{{}, splitCommandLine(line)};
    if (result.words.empty()) {
        return result;
    }
    result.programs = findPrograms(nativePath(result.words[0]), workingDirectory);
    const bool isPath = line.front() != '"' && result.words[0].find_first_of("/\\") != std::string::npos;
    std::size_t end = isPath ? result.words[0].size() : line.size();
    while (result.programs.empty() && end < line.size()) {
        end = std::min(line.find(' ', end + 1), line.size());
        const std::string name(line.substr(0, end));
        result.programs = findPrograms(nativePath(name), workingDirectory);
        result.words = splitCommandLine("x" + std::string(line.substr(end)));
        result.words[0] = name;
    }
    return result;
}

std::string findProgram(std::string_view commandLine) {
    const Invocation invocation = resolveInvocation(commandLine, "");
    return invocation.programs.empty() ? std::string() : invocation.programs.front();
}
