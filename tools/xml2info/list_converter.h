// Reads the whole game list and turns it into blocks: cuts it at machine boundaries and lets two workers
// parse the parts, or parses it in one piece where a cut could change its meaning. Called by the program's
// entry. Writes nothing: whether the list is whole is known only at its end.
#pragma once

#include "xml2info/list_block.h"

struct Conversion {
    std::vector<Segment> segments; // in the order of the list; empty when there is a problem
    std::string problem;           // why there is no list; empty when it is good
};

Conversion convertList(int inputDescriptor);
