// SPDX-License-Identifier: GPL-3.0-or-later
// Wraps paragraphs into lines that fit a popup. Called by the scroller when its window gets a new size. Draws
// nothing.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>
#include <vector>

// Wraps each line to the length of the window's client area along the text direction, minus a margin,
// measured with the font selected in dc. Breaks at white space, dropping one character of it, or inside a
// word that is wider than the area. An empty line yields one empty line. Returns an array of texts and stores
// their number in *outCount; the array and the texts are allocated with malloc and owned by the caller.
// Returns null and 0, after a message on standard output, when the text cannot be measured.
char** wordWrapText(HWND window, HDC dc, const char* const* lines, std::int32_t count,
                    std::int32_t* outCount);

// Wraps one line likewise to a width in pixels. An empty line yields no line.
std::vector<std::string> wrapLine(HDC dc, const char* line, LONG width);
