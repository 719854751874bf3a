// The catalogue: all records of the game list, their index by short name and the link from each clone to its
// parent. Filled once at the start by the loader, sorted by the sort, read by the scan, the filter and the
// game information. It finds no file and makes no list.
#pragma once

#include "catalogue/game_record.h"
#include "catalogue/hash_table.h"

#include <cstdint>
#include <cstdio>

// All records: in file order first, then in that of the last sort. Written by readGameList and freeGameList;
// the order by sortGames. Null when empty.
extern GameRecord** allGames;
extern std::int32_t gameCount;

// Short name to record, null when the list holds no record. Written by readGameList and freeGameList.
extern HashTable* gameIndex;

// Reads every record of an open list file into the catalogue, which must be empty, completes what readers
// rely on, builds the index and links the clones. The stream stays open.
void readGameList(FILE* stream);

// Empties the catalogue and the view. Harmless when they are empty.
void freeGameList();
