// SPDX-License-Identifier: GPL-3.0-or-later
// The setting History.xml: the published history file, whose texts the scroller shows after the game
// information. Started and stopped by WinMain; asked by the GameInfo command. A thread reads the file once,
// after the first picture, and keeps only the place of each system's entry; a text is read when it is shown.
// The file looks like this, and everything else in it is skipped:
//   <history><entry><systems><system name="pacman"/>...</systems><text>...</text></entry>...</history>
#pragma once

#include <cstdint>
#include <cstdio>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

// Starts reading the file. Does nothing when the setting is empty.
void startHistory();

// Ends the reading and forgets the file.
void stopHistory();

// Returns the lines of a system's text in code page 1252, without blank lines at either end; none when the
// file has no text for it. Waits up to half a second for the thread; the texts are missing until it is done.
std::vector<std::string> historyText(const char* systemName);

// The parts that work on an open file, for the functions above, tests and benchmarks.

struct HistoryPlace {
    std::uint64_t nameHash;
    std::int64_t entryOffset; // bytes from the start of the file to the entry's start tag
};

// Fills `index` with the places of all systems, sorted; at most 4 MB of them. Returns what ended the reading
// before the end of the file, with its line, or an empty text. What was read before that is in the index.
std::string indexHistory(FILE* file, const std::stop_token& stop, std::vector<HistoryPlace>& index);

// The lines of a system's text, read from its place. None when the entry there is another system's, since the
// file may have changed after it was indexed.
std::vector<std::string> readHistory(FILE* file, const std::vector<HistoryPlace>& index,
                                     std::string_view systemName);
