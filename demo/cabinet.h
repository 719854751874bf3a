// SPDX-License-Identifier: GPL-3.0-or-later
// Creates the folder of the demonstration cabinet with settings and ROM folder; the front end creates the
// game list at its first start. Used by demo-cabinet, the tour and the end-to-end tests. Never changes an
// existing settings file.
#pragma once

#include <string>
#include <vector>

// Creates the folder if it does not exist. On a write error returns false with a message in `problem`.
bool layOutCabinet(const std::string& folder, std::string& problem);

struct SettingChange {
    std::string key;
    std::string value;
    std::string section = "Settings"; // of a new key
};

// The cabinet's settings file with some values changed. The keys are unique in the whole file.
std::string cabinetSettings(const std::vector<SettingChange>& changes = {});

// On a write error returns false with a message in `problem`.
bool writeTextFile(const std::string& path, const std::string& content, std::string& problem);
