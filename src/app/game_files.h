// SPDX-License-Identifier: GPL-3.0-or-later
// Checks that the catalogue, the pictures and the movies make before they open a file named after a game:
// whether the name is safe as part of a path, and whether the file exists. Opens nothing.
#pragma once

#include <cstdint>

// Returns 1 when a file or directory matches the path, else 0. Wildcards are expanded, so a pattern counts as
// existing when anything matches it.
std::int32_t fileExists(const char* path);

// Returns whether a path made of a folder and this stem stays inside the folder: the stem is not absolute and
// has no ".." component. Symbolic links are not resolved. Returns false for null.
bool staysInFolder(const char* stem);
