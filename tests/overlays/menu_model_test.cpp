// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/menu_model.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

std::string shownChoice(MenuItem* item) {
    EXPECT_GE(item->current, 0);
    EXPECT_LT(item->current, item->choiceCount);
    std::string value = item->choices[item->current];
    freeMenuItem(item);
    return value;
}

void setFonts(std::initializer_list<const char*> names) {
    freeFontNames();
    fontNames = static_cast<char**>(std::calloc(names.size() + 1, sizeof(char*)));
    for (const char* name : names) {
        fontNames[fontNameCount++] = copyString(name);
    }
}

TEST(MenuModel, ShowsTheNearestChoiceForAnyValue) {
    constexpr std::int32_t largest = 2147483647;
    const std::pair<std::int32_t, const char*> sizes[] = {
        {8, "8"},       {9, "8"}, {10, "10"}, {36, "36"}, {37, "36"},      {38, "36"},
        {10'000, "36"}, {7, "8"}, {0, "8"},   {-5, "8"},  {largest, "36"}, {-largest, "8"}};
    for (const auto& [size, text] : sizes) {
        EXPECT_EQ(shownChoice(newSizeItem("", size)), text) << size;
    }
    const std::pair<std::int32_t, const char*> counts[] = {
        {-1, "0"}, {0, "0"}, {5, "5"}, {8, "8"}, {12, "8"}};
    for (const auto& [value, text] : counts) {
        EXPECT_EQ(shownChoice(newCountItem("", value)), text);
    }
    const std::pair<std::int32_t, const char*> flags[] = {{0, "No"}, {1, "Yes"}, {2, "Yes"}, {-1, "Yes"}};
    for (const auto& [flag, text] : flags) {
        EXPECT_EQ(shownChoice(newYesNoItem("", flag)), text);
    }
}

TEST(MenuModel, ShowsTheExactFontOrTheFirst) {
    setFonts({"Alpha", "Beta", "Beta", "Gamma"});
    MenuItem* item = newFontItem("Font", "Beta");
    EXPECT_EQ(item->choiceCount, 4);
    EXPECT_EQ(item->current, 2) << "the later of two";
    freeMenuItem(item);
    EXPECT_EQ(shownChoice(newFontItem("", "beta")), "Alpha");
    setFonts({});
    EXPECT_EQ(shownChoice(newFontItem("", "Kept")), "Kept") << "no font is installed";
    freeFontNames();
}

TEST(MenuModel, ListsTheInstalledFontsInOrder) {
    for (int round = 0; round < 2; ++round) {
        enumerateFonts(nullptr);
        ASSERT_GT(fontNameCount, 0);
        for (std::int32_t font = 1; font < fontNameCount; ++font) {
            EXPECT_LE(std::string(fontNames[font - 1]), fontNames[font]);
        }
    }
    EXPECT_EQ(shownChoice(newFontItem("", "Arial")), "Arial");
    freeFontNames();
    EXPECT_EQ(fontNames, nullptr);
}

} // namespace
