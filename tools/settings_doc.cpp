// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the chapter of the manual about the ini file: `settings_doc > docs/settings.md`. With the argument
// --man prints it for the man page.
#include "config/settings_document.h"

#include <cstdio>
#include <string_view>

int main(int count, char** arguments) {
    const bool isManPage = count > 1 && std::string_view(arguments[1]) == "--man";
    std::fputs(settingsDocument(isManPage ? SettingsForm::manPage : SettingsForm::page).c_str(), stdout);
    return 0;
}
