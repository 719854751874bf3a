// The attract movies of the demonstration cabinet: some seconds of the stand-in emulator's own scenes with
// sound, one for some of the games, and one damaged file as real collections have them. Used when the cabinet
// is laid out.
#pragma once

#include <string>

// Writes those that are missing into the folder. False, with a line in `problem`, when one cannot be written.
bool layOutMovies(const std::string& folder, std::string& problem);
