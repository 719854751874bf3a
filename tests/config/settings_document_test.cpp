// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings_document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

TEST(SettingsDocument, MatchesTheManual) {
    const auto manual = std::filesystem::path(__FILE__).parent_path() / "../../docs/settings.md";
    std::ifstream file(manual);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(text, settingsDocument(SettingsForm::page)) << "run settings_doc > docs/settings.md";
}
