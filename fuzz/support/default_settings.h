// SPDX-License-Identifier: GPL-3.0-or-later
// The settings as they are without an ini file, for targets that run a part of the application.
#pragma once

#include "config/settings.h"
#include "config/settings_file.h"

// Loads them at the first call only.
inline void useDefaultSettings() {
    static const bool once = [] {
        iniPath = "missing.ini";
        loadSettings();
        return true;
    }();
    static_cast<void>(once);
}
