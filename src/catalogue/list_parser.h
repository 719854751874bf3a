// SPDX-License-Identifier: GPL-3.0-or-later
// Parses the game list file, in which each record is a block of lines. Called by the catalogue. The parser
// never fails: missing values stay zero and unknown statements are skipped. It does not fill in defaults.
#pragma once

#include "catalogue/game_record.h"

#include <cstdio>
#include <memory_resource>

// Reads one block from a stream opened with openTextFile and positioned at the start of a line. Returns a
// record, incomplete when the file ends inside the block, or null when only blank lines are left.
//
// The record, its sub-records and its texts are one block of `memory`, which the caller releases after
// freeGameRecord. Replacing a pointer with one to longer-lived data is fine.
GameRecord* parseGameRecord(FILE* stream, std::pmr::memory_resource& memory);

// Returns the first character of text that is not white space, or the terminator.
const char* skipWhitespace(const char* text);

// Frees the infoLines of a record, an array of strings that were all allocated with malloc. Null is ignored.
void freeGameRecord(GameRecord* record);
