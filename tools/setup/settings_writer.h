// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the ini file of the set-up: every key with a comment that explains it, and everything that an
// existing file holds besides. Called once at the end of the set-up.
#pragma once

#include "setup/chosen_settings.h"

#include <string>
#include <string_view>

// Returns the text of the file. From the existing text, which may be empty, it keeps the sections that the
// program has no fixed keys for (Mameoptions among them), and in the other sections each comment and key that
// the set-up did not write itself. The lines end like those of the existing text.
std::string settingsText(const ChosenSettings& chosen, std::string_view existing);

// Replaces the file at a path by the chosen settings, in one step, and keeps a former file as PATH.bak.
// Creates the folder. Returns an empty text, or what has failed; the file is then unchanged.
std::string writeSettings(const ChosenSettings& chosen, const std::string& path);
