// Consistency of the settings table, which is not checked at run time.
#include "config/setting_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>

TEST(SettingTable, KeysFieldsAndSaveOrdersAreUnique) {
    std::set<std::string> keys;
    std::set<int> saveOrders;
    for (const SettingRow& row : settingTable) {
        SCOPED_TRACE(row.key);
        EXPECT_TRUE(keys.insert(std::string(row.section) + "/" + row.key).second);
        EXPECT_EQ(std::ranges::count(settingTable, row.field, &SettingRow::field), 1);
        if (row.saveOrder != notSaved) {
            EXPECT_TRUE(saveOrders.insert(row.saveOrder).second);
        }
    }
    EXPECT_EQ(saveOrders.size(), static_cast<std::size_t>(savedSettingCount));
    EXPECT_EQ(*saveOrders.begin(), 1);
    EXPECT_EQ(*saveOrders.rbegin(), savedSettingCount);
}

TEST(SettingTable, KindsMatchFieldsAndDefaults) {
    for (const SettingRow& row : settingTable) {
        SCOPED_TRACE(row.key);
        const bool isText = row.kind == SettingKind::text || row.kind == SettingKind::optionalText;
        EXPECT_EQ(isText, std::holds_alternative<char * Settings::*>(row.field));
        EXPECT_EQ(row.kind == SettingKind::colour, std::holds_alternative<COLORREF Settings::*>(row.field));
        EXPECT_EQ(row.kind == SettingKind::shortNumber,
                  std::holds_alternative<std::int16_t Settings::*>(row.field));
        EXPECT_EQ(row.kind == SettingKind::optionalText, row.defaultText == nullptr);
        const bool hasDefaultWord = std::ranges::any_of(row.words, [&row](const ChoiceWord& choice) {
            return std::strcmp(choice.word, row.defaultText) == 0;
        });
        EXPECT_EQ(row.kind == SettingKind::choice, hasDefaultWord);
        if (isExtra(row) && !isText && row.kind != SettingKind::choice) {
            const int defaultNumber = std::atoi(row.defaultText);
            EXPECT_LE(row.range.lowest, defaultNumber);
            EXPECT_LT(defaultNumber, row.range.highest);
        }
    }
}
