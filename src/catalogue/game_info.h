// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the game information file and attaches its lines to the records (GameRecord::infoLines). The loader
// calls it once the catalogue is complete; the scroller displays the lines. Blocks for games that are not in
// the catalogue are skipped.
#pragma once

#include <cstdint>
#include <cstdio>

// Reads the file unless the setting useMameInfoDat is 0. Sets useMameInfoDat to 0 when the file cannot be
// opened. Always returns 1.
std::int32_t loadGameInfo(const char* path);

// Reads blocks from a stream opened with openTextFile until the end of the file or the first misplaced
// statement, which is reported on standard output. Returns 1 when reading ended between blocks and 0 inside a
// block; an incomplete block is discarded. Does not close the stream.
std::int32_t parseGameInfo(FILE* stream);
