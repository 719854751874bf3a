// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion of the application's paths to native ones, and the path of the program. Called inside the
// platform wherever a file is opened or a program is started. Does not check whether a path exists.
#pragma once

#include <string>
#include <string_view>

// Returns the path with every backslash replaced by `/`.
std::string nativePath(std::string_view path);

// The full path of the running program, and its folder without a separator at the end. Empty when the system
// does not report it.
const std::string& programPath();
const std::string& programFolder();
