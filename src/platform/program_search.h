// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the program that a command line starts, by path, name and PATH. Called by CreateProcessA and by code
// that needs the program's folder. Starts nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Full paths of the programs that a command line can mean, best match first, and the words of the line.
struct Invocation {
    std::vector<std::string> programs;
    std::vector<std::string> words;
};

// An unquoted path may contain spaces: when its first word is not a program, each longer prefix of the line
// is tried in turn. This does not apply to a bare name, whose first word is always the whole name. A name
// without a separator is also searched for in workingDirectory; empty means the current directory.
Invocation resolveInvocation(std::string_view line, const std::string& workingDirectory);

// Full path of the program that a command line starts with the current directory as its working directory;
// empty when there is none.
std::string findProgram(std::string_view commandLine);
