// SPDX-License-Identifier: GPL-3.0-or-later
// Assembles the list file and writes it. Called by main() once the whole list has been converted. When
// writing fails, removes what was written, because the front end would use an incomplete list at every later
// start.
#pragma once

#include "xml2info/list_block.h"

// Returns the end of each block's chain of romof links, in the order of the blocks; empty for a block without
// romof. The end may be a set that is not in the list. Blocks in a cycle keep their own romof.
std::vector<std::string_view> resolveRomOf(const std::vector<const Block*>& blocks);

// Writes the list file to an open descriptor and, if that is a regular file, syncs it to disk. On failure,
// restores the previous size of a regular file, sets errno and returns false.
bool writeList(int descriptor, const std::vector<Segment>& segments);
