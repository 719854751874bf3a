// A cabinet of the size of a current emulator's, made up for the
// benchmarks: a list and the zips that belong to it. Called by
// the benchmarks that measure what the number of games costs.
#pragma once

#include <filesystem>

// Writes a list of 45,294 records with credible names, titles, years and makers; always the same.
void writeLargeList(const std::filesystem::path& path);

// Makes a folder with an empty zip for each record of a list.
void writeZips(const std::filesystem::path& list, const std::filesystem::path& folder);
