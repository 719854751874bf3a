// SPDX-License-Identifier: GPL-3.0-or-later
// Parsing of command lines: splitting them into words for CreateProcessA, and finding the part after the
// program's name for the entry. Nothing is started or searched for here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Spaces and tabs separate words; double quotes group characters into one word. 2n backslashes before a quote
// are n backslashes and the quote is a delimiter, 2n + 1 are n backslashes and a literal quote; two quotes
// inside quotes are a literal quote. In the first word, the program, a backslash is always literal. The end
// of the line closes an open quote. An empty line has no words.
std::vector<std::string> splitCommandLine(std::string_view commandLine);

// The part of the same text after the program's name and the spaces and tabs that follow it, unmodified. A
// name in double quotes ends at the next double quote, any other at a space or tab.
char* commandTail(char* commandLine);
