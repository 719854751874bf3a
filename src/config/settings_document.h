// The chapter of the manual on the ini file, made from the table of
// settings. Called by the tool that writes docs/settings.md and by the test
// that keeps that file up to date; the front end itself does not use it.
#pragma once

#include <string>

// The whole chapter in Markdown.
std::string settingsDocument();
