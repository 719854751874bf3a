// The one question that the catalogue and the pictures
// ask the file system: is there such a file? Called
// before anything is opened. It opens nothing itself.
#pragma once

#include <cstdint>

// 1 when a search for the path finds something, else 0. A directory counts, and a path with wildcards answers
// for the pattern.
std::int32_t fileExists(const char* path);
