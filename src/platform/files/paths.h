// Paths as the application writes them and as the machine wants them. Called wherever the platform opens a
// file or starts a program, and inside the platform only. Nothing here looks at what a path names, but for
// the place of the program itself.
#pragma once

#include <string>
#include <string_view>

// The same path with `/` for every backslash.
std::string nativePath(std::string_view path);

// Full path of the running program, and its folder without a separator at the end. Empty when the machine
// does not tell.
const std::string& programPath();
const std::string& programFolder();
