// SPDX-License-Identifier: GPL-3.0-or-later
// Selects the records that the player sees, by the filter settings. Called at startup, after each sort and
// when the options menu or the favourites change the view. Does not touch the selection; callers restore it.
#pragma once

// Rebuilds visibleGames from allGames, keeping its order. The view is empty when memory runs out.
void filterGames();
