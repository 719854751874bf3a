// SPDX-License-Identifier: GPL-3.0-or-later
// Consistency of the settings table, which is not checked at run time.
#include "config/setting_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

TEST(SettingTable, RowsAreUniqueAndChoicesListTheirDefault) {
    std::set<std::string> keys;
    std::set<int> saveOrders;
    for (const SettingRow& row : settingTable) {
        SCOPED_TRACE(row.key);
        EXPECT_TRUE(keys.insert(std::string(row.section) + "/" + row.key).second);
        EXPECT_EQ(std::ranges::count(settingTable, row.field, &SettingRow::field), 1);
        EXPECT_TRUE(row.saveOrder == notSaved || saveOrders.insert(row.saveOrder).second);
        EXPECT_EQ(row.kind == SettingKind::optionalText, row.defaultText == nullptr);
        const bool listed = std::ranges::any_of(row.words, [&row](const ChoiceWord& choice) {
            return choice.word == std::string(row.defaultText);
        });
        EXPECT_EQ(row.kind == SettingKind::choice, listed);
    }
    EXPECT_EQ(saveOrders.size(), static_cast<std::size_t>(savedSettingCount));
}
