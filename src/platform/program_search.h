// The search for the program that a command line starts: on the disk, by name, path and PATH. Called for
// CreateProcessA, and by whoever has to know the program's folder. Nothing is started here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The full paths of the programs that a command line can mean, the best first, and its words.
struct Invocation {
    std::vector<std::string> programs;
    std::vector<std::string> words;
};

// A path without quotes may hold blanks: when its first word is no program, each longer beginning of the line
// is tried in turn. Only a path: after a bare name no further word is part of the program. A name without a
// separator is also searched for in workingDirectory, which is the current folder when it is empty.
Invocation resolveInvocation(std::string_view line, const std::string& workingDirectory);

// Full path of the program that a command line starts when its working directory is the current one; empty
// when there is none.
std::string findProgram(std::string_view commandLine);
