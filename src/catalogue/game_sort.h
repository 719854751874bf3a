// SPDX-License-Identifier: GPL-3.0-or-later
// Sorts the catalogue by the key in the setting sortBy. Called at startup and by the sort command. Does not
// update the view: visibleGames keeps the old order until filterGames runs.
#pragma once

// qsort comparison of two entries of allGames (both arguments point to a GameRecord*). Years compare as
// decimal text, so that a partial year sorts next to the years that begin with it. Changes a year of 0 to
// 9999 in the record.
int compareGames(const void* first, const void* second);

// Sorts allGames with compareGames.
void sortGames();
