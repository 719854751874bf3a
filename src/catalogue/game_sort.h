// The order of the catalogue, by the key that the setting
// sortBy names. Called at the start and by the sort command.
// The view keeps its old order until it is filtered anew.
#pragma once

// Compares two entries of allGames, that is, two addresses of GameRecord pointers, as strcmp does. A year of
// 0 becomes 9999 in the record itself. Years compare as decimal text, so that a partial year falls among
// those it begins.
int compareGames(const void* first, const void* second);

// Sorts allGames by compareGames.
void sortGames();
