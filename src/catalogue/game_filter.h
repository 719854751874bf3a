// The view: which records the player sees, by the filters of the
// settings. Called at the start, after each sort and when the options
// menu closes. What becomes of the selection is the caller's affair.
#pragma once

// Rebuilds visibleGames and visibleCount from allGames, in its order.
void filterGames();
