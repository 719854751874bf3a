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

// Sizes of the parts in bytes. Parts of the usual size are still in the processor's cache when they are
// parsed. When no start of a machine is found within the largest size, the remaining list is parsed as one
// part.
struct PartSizes {
    std::size_t usual = 1 << 20;
    std::size_t largest = 8 << 20; // more than the start tag and the end tag of the root element together
};

// Reads from an open descriptor, which stays open. The result does not depend on the sizes of the parts,
// except that a list with a machine inside a machine may be reported as damaged. Throws std::bad_alloc.
Conversion convertList(int inputDescriptor, const PartSizes& sizes = {});
