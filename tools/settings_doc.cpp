// Prints the chapter of the manual about the ini file: `settings_doc > docs/settings.md`.
#include "config/settings_document.h"

#include <cstdio>

int main() {
    std::fputs(settingsDocument().c_str(), stdout);
    return 0;
}
