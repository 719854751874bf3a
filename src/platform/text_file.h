// Text files for reading, whatever their line ends and encoding. Called by the readers of the game list and
// the game information, which get code page 1252 and plain new-lines. Nothing is written here.
#pragma once

#include "platform/types.h"

#include <cstdio>

// Opens a text file for reading: each line end, CR LF or LF, is read as one new-line; a file that starts with
// a UTF-8 byte order mark, or whose first byte beyond ASCII begins a character of UTF-8, is converted to code
// page 1252, without the mark. For fgets, feof and fclose only. Null when it cannot be opened or is no plain
// file.
FILE* openTextFile(LPCSTR path);
