// SPDX-License-Identifier: GPL-3.0-or-later
// The movie of the benchmarks: patterns that move, with a tone.
#pragma once

#include <string>

// Returns the bytes of an AVI file with `framesPerSecond` pictures of the given size for each of `seconds`.
std::string generatedMovie(int width, int height, int framesPerSecond, int seconds);
