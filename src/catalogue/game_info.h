// Hangs the text of the game information file on the records of the list. Called by the loader once the
// catalogue and its index stand; the scroller shows the lines later. A block for a game that is not in the
// list is passed over without being kept.
#pragma once

#include <cstdint>
#include <cstdio>

// Reads the file at the path. One that cannot be opened switches useMameInfoDat off for the rest of the run.
// Always gives 1, and nothing is done with useMameInfoDat at 0.
std::int32_t loadGameInfo(const char* path);

// Reads the blocks of an open file (of openTextFile) to its end or to the first statement that is out of
// place, which a line on standard output tells. Gives 1 when that was outside a block, else 0; an open block
// is dropped.
std::int32_t parseGameInfo(FILE* stream);
