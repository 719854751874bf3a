// SPDX-License-Identifier: GPL-3.0-or-later
// Generates a game list of the size of a current emulator's, and its zips. Used by the benchmarks whose
// results depend on the number of games.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Writes a list of 45,294 records with plausible names, titles, years and manufacturers. The output is always
// the same.
void writeLargeList(const std::filesystem::path& path);

// Creates a folder with an empty zip for each record of a list.
void writeZips(const std::filesystem::path& list, const std::filesystem::path& folder);

// Returns the names of the games in a list, without its resources, in the order of their titles.
std::vector<std::string> gamesByTitle(const std::filesystem::path& list);
