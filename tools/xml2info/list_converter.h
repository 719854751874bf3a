// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the game list and converts it to blocks of the list file. Splits the list between machines and parses
// the parts in two threads, or parses it as one document where splitting could change its meaning. Called by
// main(). Does not write the output, because the list is known to be complete only at its end.
#pragma once

#include "xml2info/list_block.h"

struct Conversion {
    std::vector<Segment> segments; // in the order of the list; empty when there is a problem
    std::string problem;           // an error message; empty on success
};

// Reads from an open descriptor, which stays open. Throws std::bad_alloc.
Conversion convertList(int inputDescriptor);
