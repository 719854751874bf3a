// Lays out the folder of the demonstration cabinet: settings, ROM folder,
// no game list yet. Used by demo-cabinet, the tour and the end-to-end
// tests. A settings file that is already there is never touched.
#pragma once

#include <string>
#include <vector>

// Creates the folder when it is missing. False, with a line in `problem`, when something cannot be written.
bool layOutCabinet(const std::string& folder, std::string& problem);

struct SettingChange {
    std::string key;
    std::string value;
};

// The cabinet's settings file with other values for some of the keys; a key that it lacks goes to the section
// Settings.
std::string cabinetSettings(const std::vector<SettingChange>& changes = {});

// False, with a line in `problem`, when the file cannot be written in full.
bool writeTextFile(const std::string& path, const std::string& content, std::string& problem);
