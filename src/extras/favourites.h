// SPDX-License-Identifier: GPL-3.0-or-later
// The favourites: marks that the player sets on games, their file, and the view of the marked games only.
// Owns favourites.dat in the current directory and the field isFavourite of the records; the filter, the
// status bar and the options menu read that field and settings.favouritesOnly. Called by WinMain and the
// tick. Without a control for the favourites no function reads, writes or polls anything.
#pragma once

#include "platform/types.h"

// Marks the games that the file names, and shows all games. Called once, between reading the list and
// filtering it.
void startFavourites();

// Executes the two commands of the favourites, each once per press: marking the selected game or removing its
// mark, and showing the marked games only or all games. Plays the Error sound when there is nothing to mark
// or to show, or when the file cannot be read or written; the marks then stay as they are.
void serveFavourites(HWND window);
