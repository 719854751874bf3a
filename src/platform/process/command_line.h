// Command lines as text: into words, by the documented rules, for CreateProcessA, and the tail behind the
// program's name for the entry. Apart from both, so that it can be tested by table. Nothing is started or
// looked up here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Blanks and tabs separate words; double quotes hold a word together. 2n backslashes before a quote are n
// backslashes and the quote counts, 2n + 1 are n backslashes and a plain quote; two quotes inside quotes are
// a plain quote. In the first word, the program, a backslash is always plain. An unclosed quote ends with the
// line. An empty line has no words.
std::vector<std::string> splitCommandLine(std::string_view commandLine);

// What stands behind the program's name and the blanks and tabs after it: the rest of the same text,
// untouched. A name in double quotes ends at the next double quote, any other at a blank or tab.
char* commandTail(char* commandLine);
