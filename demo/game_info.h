// The information file of the demonstration cabinet: what there is to read
// about some of its games. Called when the cabinet is laid out. Not every
// game has a text, and a clone without one shows that of its parent.
#pragma once

#include <string>

// The file as such files come: UTF-8 with a byte order mark, CR LF, an empty line behind each line of text.
std::string demoGameInfo();
