// SPDX-License-Identifier: GPL-3.0-or-later
// Generates the manual's chapter on the ini file from the settings table. Called by the tool that writes
// docs/settings.md and the man page, and by the test that checks that the file is up to date; not part of the
// front end.
#pragma once

#include <string>

enum class SettingsForm {
    page,    // with tables, for docs/settings.md
    manPage, // with definition lists, without a title
};

// Returns the whole chapter in Markdown.
std::string settingsDocument(SettingsForm form);
