// SPDX-License-Identifier: GPL-3.0-or-later
// The extra "next and previous letter": finds the game to which these two commands move the selection. Called
// by the commands; reads the view and the sort order, and changes nothing.
#pragma once

#include <cstdint>

// Games that follow each other in the view and have the same initial letter, year or manufacturer, whichever
// the view is sorted by, form a group. Case does not matter, and all titles that start with no letter have
// the same initial. Titles sort by their bytes, so an initial may have several groups.
//
// Both return the index of the first game of the group after or before the selected game's, or -1 when there
// is none.
std::int32_t firstOfNextGroup();
std::int32_t firstOfPreviousGroup();
