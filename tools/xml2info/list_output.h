// Puts the list file together and writes it. Called by the program's entry
// once the whole list is known to be good. A file that cannot be written
// whole is left empty: the front end would trust half a list for ever.
#pragma once

#include "xml2info/list_block.h"

// The far end of each block's chain of romof, in the order of the blocks, empty for a block without one. The
// end may be a set that is not in the list. A block in a circle keeps its own romof.
std::vector<std::string_view> resolveRomOf(const std::vector<const Block*>& blocks);

// Writes the list file to an open descriptor and, if that is a regular file, sees it to the disk. False when
// it failed, with errno set.
bool writeList(int descriptor, const std::vector<Segment>& segments);
