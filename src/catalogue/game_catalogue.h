// SPDX-License-Identifier: GPL-3.0-or-later
// Owns the catalogue: all records of the game list, their index by short name and the link from each clone to
// its parent. The loader fills it once at startup; the ROM scan, the sort, the filter and the game
// information reader work on it. Locating and generating the list file is the loader's job.
#pragma once

#include "catalogue/game_record.h"
#include "catalogue/hash_table.h"

#include <cstdint>
#include <cstdio>

// All records, in file order until the first sort and in the order of the last sort after it; null when
// empty. Written by readGameList and freeGameList, reordered by sortGames.
extern GameRecord** allGames;
extern std::int32_t gameCount;

// Maps short names to records; null when the catalogue is empty. Written by readGameList and freeGameList.
extern HashTable* gameIndex;

// Reads all records of an open list file into the catalogue, which must be empty. Fills in defaults for
// missing data, builds the index and links clones to their parents. Does not close the stream.
void readGameList(FILE* stream);

// Frees the catalogue and the view of visible games. Does nothing when both are empty.
void freeGameList();
