// Reads the records of the game list file, one block of lines each, and releases them. Called by the
// catalogue. It takes a record as it stands in the file: what is missing stays zero, what it does not know is
// skipped, nothing is an error.
#pragma once

#include "catalogue/game_record.h"

#include <cstdio>

// Reads one block from a stream (of openTextFile) that stands at the start of a line. Gives a record owned by
// the caller, cut short where the file ends inside the block; null when no non-blank line is left. The
// record, its sub-records and its texts share one piece of memory: a list of 45,000 records is 45,000
// allocations instead of nine times as many. So a text or sub-record may be replaced by one that outlives the
// record, never freed.
GameRecord* parseGameRecord(FILE* stream);

// The first character of text that is not white space, or its terminator.
const char* skipWhitespace(const char* text);

// Releases a record of parseGameRecord with all that it owns, its infoLines included: those are an array and
// texts from malloc. Null does nothing.
void freeGameRecord(GameRecord* record);
