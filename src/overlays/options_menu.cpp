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

namespace {

// A choice of a line that has words of its own, and what it means in the settings.
struct ChoiceWord {
    const char* word;
    std::int32_t value;
};

constexpr ChoiceWord menuTypeWords[] = {{"List View", menuTypeListView},
                                        {"Image Preview", menuTypeImageBrowser}};
constexpr ChoiceWord pictureWords[] = {
    {"Screen Shots", previewScreenShots}, {"Flyers", previewFlyers}, {"Marquees", previewMarquees}};
constexpr ChoiceWord orientationWords[] = {
    {"Normal", 0}, {"Inverted", 180}, {"Rotate Right", 90}, {"Rotate Left", -90}};

// The kinds of line, each with the field that it shows and changes.
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
struct WordLine {
    std::int32_t Settings::*field;
    std::span<const ChoiceWord> words;
    std::int32_t otherwise; // the choice for a value without a word
};

struct OptionLine {
    const char* label;
    std::variant<FontLine, SizeLine, YesNoLine, CountLine, WordLine> kind;
};

constexpr std::array<OptionLine, 23> optionLines = {{
    {"Menu Type", WordLine{&Settings::menuType, menuTypeWords, 1}},
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
    {"Preview Pictures", WordLine{&Settings::previewPictures, pictureWords, 0}},
    {"Screen Orientation", WordLine{&Settings::baseOrientation, orientationWords, 0}},
}};

// Makes the line of each kind.
struct LineMaker {
    const char* label;

    MenuItem* operator()(const FontLine& line) const { return newFontItem(label, settings.*line.field); }
    MenuItem* operator()(const SizeLine& line) const { return newSizeItem(label, settings.*line.field); }
    MenuItem* operator()(const YesNoLine& line) const { return newYesNoItem(label, settings.*line.field); }
    MenuItem* operator()(const CountLine& line) const { return newCountItem(label, settings.*line.field); }
    MenuItem* operator()(const WordLine& line) const {
        MenuItem* item = newMenuItem(static_cast<std::int32_t>(line.words.size()));
        item->label = copyString(label);
        item->current = line.otherwise;
        for (std::int32_t choice = 0; choice < item->choiceCount; ++choice) {
            const ChoiceWord& word = line.words[static_cast<std::size_t>(choice)];
            item->choices[choice] = copyString(word.word);
            if (settings.*line.field == word.value) {
                item->current = choice;
            }
        }
        return item;
    }
};

// Writes the answer of a line of each kind into its field.
struct AnswerTaker {
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
    void operator()(const WordLine& line) const {
        settings.*line.field = line.words[static_cast<std::size_t>(item.current)].value;
    }
};

MenuItem** newOptionItems() {
    auto** items = static_cast<MenuItem**>(std::calloc(optionLines.size(), sizeof(MenuItem*)));
    std::ranges::transform(optionLines, items, [](const OptionLine& line) {
        return std::visit(LineMaker{line.label}, line.kind);
    });
    return items;
}

// A flip for player 2 that is in force ends here.
void takeAnswers(MenuItem** items) {
    for (std::size_t line = 0; line < optionLines.size(); ++line) {
        std::visit(AnswerTaker{*items[line]}, optionLines[line].kind);
    }
    settings.orientation = settings.baseOrientation;
}

} // namespace

int showOptionsMenu() {
    if (!settings.allowMenu) {
        return 0;
    }
    constexpr auto count = static_cast<std::int32_t>(optionLines.size());
    enumerateFonts(windowDC);
    MenuItem** items = newOptionItems();
    const int hasRun = runMenu(items, count);
    if (hasRun) {
        takeAnswers(items);
    }
    closeMenuWindows();
    freeMenuList(items, count);
    freeFontNames();
    return hasRun;
}
