// The attract movie of the selected game: finds the file, opens it in a window over the frame, fits that
// window into a rectangle and plays it in an endless loop. Called by both views; nothing is drawn into the
// frame here.
#pragma once

#include "catalogue/game_record.h"
#include "platform/types.h"

// The window of the movie, null when none is open. Written by the two functions below.
extern HWND movieWindow;

// Plays the movie of the game, or of its parent when it has none of its own. 1 when it plays, 0 when a
// picture is wanted instead. When a movie was opened, left and top of the area become those of its window.
int playAttractMovie(const GameRecord* game, RECT* area);

// Ends the movie; nothing when there is none.
void closeAttractMovie();
