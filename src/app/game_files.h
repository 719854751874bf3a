// What the catalogue, the pictures and the movies
// ask before a file is opened: may a game's name be
// part of its path, and is there such a file? Nothing
// is opened here.
#pragma once

#include <cstdint>

// 1 when a search for the path finds something, else 0. A directory counts, and a path with wildcards answers
// for the pattern.
std::int32_t fileExists(const char* path);

// Whether a file with this stem lies in the folder that it is sought in or below it: the stem is no absolute
// path and has no component "..". Symbolic links are not looked at. A null stem names no file.
bool staysInFolder(const char* stem);
