// Cuts paragraphs into lines that fit a popup, at
// blanks where there are any. Called by the scroller
// when its window has a new size. It draws nothing.
#pragma once

#include "platform/types.h"

#include <cstdint>

// Cuts each of the lines to the client area of the window along the text, less a margin, as the font selected
// in dc measures it: at white space, of which one character goes, or inside a word that is wider than that.
// An empty line stays one. Gives an array of texts, both from malloc, and their number; null and 0, after a
// word on standard output, when the text cannot be measured.
char** wordWrapText(HWND window, HDC dc, const char* const* lines, std::int32_t count,
                    std::int32_t* outCount);
