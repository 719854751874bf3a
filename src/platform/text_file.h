// SPDX-License-Identifier: GPL-3.0-or-later
// Reads text files with any line ends, encoded in UTF-8 or code page 1252. Called by the readers of the game
// list and the game information, which receive code page 1252 and plain new-lines. Writes nothing.
#pragma once

#include "platform/types.h"

#include <cstdio>

// Opens a text file for reading. Each line end, CR LF or LF, is read as one new-line. A file that starts with
// a UTF-8 byte order mark, or whose first non-ASCII byte begins a valid UTF-8 character, is converted to code
// page 1252, without the mark. The stream supports only fgets, feof and fclose; the caller closes it. Returns
// null when the file cannot be opened or is not a plain file.
FILE* openTextFile(LPCSTR path);
