// SPDX-License-Identifier: GPL-3.0-or-later
// The game information file and the history file of the demonstration cabinet. Called when the cabinet is
// created. Not every game has a text; for a clone without one the front end shows that of its parent.
#pragma once

#include <string>

// The file in the usual format: UTF-8 with a byte order mark, CR LF, an empty line after each line of text.
std::string demoGameInfo();

// The history file in XML. The cabinet's settings do not name it; the tour does.
std::string demoHistory();
