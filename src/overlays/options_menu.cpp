// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/options_menu.h"

#include "app/window_state.h"
#include "config/settings.h"
#include "overlays/menu_model.h"
#include "overlays/menu_window.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <variant>
#include <vector>

namespace {

// A choice of a line with fixed choices, and its value in the settings.
struct FixedChoice {
    const char* text;
    std::int32_t value;
};

constexpr FixedChoice menuTypeChoices[] = {{"List View", menuTypeListView},
                                           {"Image Preview", menuTypeImageBrowser}};
constexpr FixedChoice pictureChoices[] = {
    {"Screen Shots", previewScreenShots}, {"Flyers", previewFlyers}, {"Marquees", previewMarquees}};
constexpr FixedChoice orientationChoices[] = {
    {"Normal", 0}, {"Inverted", 180}, {"Rotate Right", 90}, {"Rotate Left", -90}};

// The kinds of lines, each with the field of the settings that it edits.
struct FontLine {
    char* Settings::*field;
};
struct SizeLine {
    std::int32_t Settings::*field;
};
struct YesNoLine {
    std::int32_t Settings::*field;
};
struct CountLine {
    std::int16_t Settings::*field;
};
struct FixedLine {
    std::int32_t Settings::*field;
    std::span<const FixedChoice> choices;
    std::int32_t defaultChoice; // index shown for a value that is not in the list
};

struct OptionLine {
    const char* label;
    std::variant<FontLine, SizeLine, YesNoLine, CountLine, FixedLine> kind;
};

constexpr std::array<OptionLine, 23> optionLines = {{
    {"Menu Type", FixedLine{&Settings::menuType, menuTypeChoices, 1}},
    {"Main Window Font", FontLine{&Settings::fontFace}},
    {"Main Window Font Size", SizeLine{&Settings::fontSize}},
    {"Status Bar Font", FontLine{&Settings::statusBarFontFace}},
    {"Status Bar Font Size", SizeLine{&Settings::statusBarFontSize}},
    {"Menu Font Size", SizeLine{&Settings::menuFontSize}},
    {"Display Missing Games", YesNoLine{&Settings::displayMissingRoms}},
    {"Display Vertical Games", YesNoLine{&Settings::displayVertical}},
    {"Display Horizontal Games", YesNoLine{&Settings::displayHorizontal}},
    {"Display Clones", YesNoLine{&Settings::displayClones}},
    {"Display NeoGeo Games", YesNoLine{&Settings::displayNeoGeo}},
    {"Display Non-NeoGeo Games", YesNoLine{&Settings::displayNonNeoGeo}},
    {"Display Vector Games", YesNoLine{&Settings::displayVector}},
    {"Display Raster Games", YesNoLine{&Settings::displayRaster}},
    {"Display Minimum Players", CountLine{&Settings::minPlayers}},
    {"Display Maximum Players", CountLine{&Settings::maxPlayers}},
    {"Display Minimum Buttons", CountLine{&Settings::minButtons}},
    {"Display Maximum Buttons", CountLine{&Settings::maxButtons}},
    {"Display Minimum Coin Slots", CountLine{&Settings::minCoins}},
    {"Display Maximum Coin Slots", CountLine{&Settings::maxCoins}},
    {"Show Status Bar", YesNoLine{&Settings::showStatusBar}},
    {"Preview Pictures", FixedLine{&Settings::previewPictures, pictureChoices, 0}},
    {"Screen Orientation", FixedLine{&Settings::baseOrientation, orientationChoices, 0}},
}};

// Follows the others when the favourites have a control.
constexpr OptionLine favouritesLine = {"Display Favorites Only", YesNoLine{&Settings::favouritesOnly}};

std::vector<OptionLine> offeredLines() {
    std::vector<OptionLine> lines(optionLines.begin(), optionLines.end());
    if (hasFavouriteControls()) {
        lines.push_back(favouritesLine);
    }
    return lines;
}

// Creates the menu line for each kind.
struct LineBuilder {
    const char* label;

    MenuItem* operator()(const FontLine& line) const { return newFontItem(label, settings.*line.field); }
    MenuItem* operator()(const SizeLine& line) const { return newSizeItem(label, settings.*line.field); }
    MenuItem* operator()(const YesNoLine& line) const { return newYesNoItem(label, settings.*line.field); }
    MenuItem* operator()(const CountLine& line) const { return newCountItem(label, settings.*line.field); }
    MenuItem* operator()(const FixedLine& line) const {
        MenuItem* item = newMenuItem(static_cast<std::int32_t>(line.choices.size()));
        item->label = copyString(label);
        item->current = line.defaultChoice;
        for (std::int32_t choice = 0; choice < item->choiceCount; ++choice) {
            const FixedChoice& fixed = line.choices[static_cast<std::size_t>(choice)];
            item->choices[choice] = copyString(fixed.text);
            if (settings.*line.field == fixed.value) {
                item->current = choice;
            }
        }
        return item;
    }
};

// Writes the current choice of a line of each kind to its field.
struct SettingWriter {
    const MenuItem& item;

    void operator()(const FontLine& line) const {
        char* face = copyString(item.choices[item.current]);
        std::free(settings.*line.field);
        settings.*line.field = face;
    }
    void operator()(const SizeLine& line) const { settings.*line.field = sizeOfChoice(item.current); }
    void operator()(const YesNoLine& line) const { settings.*line.field = item.current == 0 ? 1 : 0; }
    void operator()(const CountLine& line) const {
        settings.*line.field = static_cast<std::int16_t>(item.current);
    }
    void operator()(const FixedLine& line) const {
        settings.*line.field = line.choices[static_cast<std::size_t>(item.current)].value;
    }
};

MenuItem** newOptionItems(const std::vector<OptionLine>& lines) {
    auto** items = static_cast<MenuItem**>(std::calloc(lines.size(), sizeof(MenuItem*)));
    std::ranges::transform(
        lines, items, [](const OptionLine& line) { return std::visit(LineBuilder{line.label}, line.kind); });
    return items;
}

// Also ends a rotation for player 2.
void writeSettings(const std::vector<OptionLine>& lines, MenuItem** items) {
    for (std::size_t line = 0; line < lines.size(); ++line) {
        std::visit(SettingWriter{*items[line]}, lines[line].kind);
    }
    settings.orientation = settings.baseOrientation;
}

} // namespace

int showOptionsMenu() {
    if (!settings.allowMenu) {
        return 0;
    }
    const std::vector<OptionLine> lines = offeredLines();
    const auto count = static_cast<std::int32_t>(lines.size());
    enumerateFonts(windowDC);
    MenuItem** items = newOptionItems(lines);
    const int hasRun = runMenu(items, count);
    if (hasRun) {
        writeSettings(lines, items);
    }
    closeMenuWindows();
    freeMenuList(items, count);
    freeFontNames();
    return hasRun;
}
