// A command line into words, by the documented rules. Called by CreateProcessA; apart so that it can be tested by table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Blanks and tabs separate words; double quotes hold a word together. 2n backslashes before a quote are n backslashes and
// the quote counts, 2n + 1 are n backslashes and a plain quote; two quotes inside quotes are a plain quote. In the first
// word, the program, a backslash is always plain. An unclosed quote ends with the line. An empty line has no words.
std::vector<std::string> splitCommandLine(std::string_view commandLine);
