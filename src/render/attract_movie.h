// SPDX-License-Identifier: GPL-3.0-or-later
// The attract movie of the selected game: finds the file, opens it in a window over the frame, fits the
// window into a rectangle and plays the movie in a loop. Called by both views. Does not draw into the frame.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"

// The movie window; null when no movie is open. Written by the functions below.
extern HWND movieWindow;

// Plays the movie of the game or, if it has none, of its parent. Returns 1 when the movie plays and 0 when
// the caller should draw a picture instead, also while the player is being loaded. If a movie was opened,
// sets left and top of the area to the position of its window, even when it cannot be played.
int playAttractMovie(const GameRecord* game, RECT* area);

// Plays the movie at the current rotation, as large as the rectangle of the frame allows. Finds the movie and
// returns 1 or 0 like playAttractMovie.
int playTurnedMovie(const GameRecord* game, const RECT& place);

// Closes the movie window, if any.
void closeAttractMovie();

// Returns 1 once when the last frame has no movie because the player was not loaded, which it is now: the
// caller should redraw. Otherwise 0.
int awaitedMovieIsReady();
