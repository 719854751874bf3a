// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the word that somebody may have meant. Used by the check.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Returns the word with the fewest changed, added or missing characters, without regard to case; the first of
// several; empty when there are no words.
std::string nearestWord(std::string_view text, const std::vector<std::string>& words);
