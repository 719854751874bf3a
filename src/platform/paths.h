// Paths as the application writes them and as the machine wants them. Inside the platform only.
#pragma once

#include <string>
#include <string_view>

// The same path with `/` for every backslash.
std::string nativePath(std::string_view path);

// Folder of the running program, without a separator at its end.
const std::string& programFolder();
