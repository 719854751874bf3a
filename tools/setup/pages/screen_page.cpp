// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/screen_page.h"

#include "setup/pages/screen_preview.h"
#include "setup/proposal.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

struct Turn {
    const char* word; // of the ini file
    const char* meaning;
};

constexpr Turn turns[] = {{"Normal", "not turned"},
                          {"ROL", "clockwise"},
                          {"ROR", "counter-clockwise"},
                          {"Inverted", "upside down"}};

constexpr int smallestFont = 12; // points, like the two below
constexpr int largestFont = 36;
constexpr int fontStep = 2;

int wrapped(int index, int step, int count) {
    return (index + step + count) % count;
}

int chosenTurn(const SetupState& state) {
    const auto* found = std::ranges::find_if(turns, [word = state.chosen.value("Settings", "Orientation")](
                                                        const Turn& turn) { return word == turn.word; });
    return found == std::end(turns) ? 0 : static_cast<int>(found - std::begin(turns));
}

int fontSize(const SetupState& state) {
    return std::atoi(state.chosen.value("Settings", "Fontsize").c_str());
}

void changeTurn(SetupState& state, int step) {
    const int index = wrapped(chosenTurn(state), step, static_cast<int>(std::size(turns)));
    chooseOrientation(state.chosen, turns[index].word);
}

void changeCocktail(SetupState& state, int) {
    const bool isTable = state.chosen.value("Settings", "InvertPlayer2Screen") != "0";
    state.chosen.set("Settings", "InvertPlayer2Screen", isTable ? "0" : "1");
}

void changeColours(SetupState& state, int step) {
    const int count = static_cast<int>(colourSchemes.size());
    const int former = chosenScheme(state.chosen);
    const int index = former < 0 ? 0 : wrapped(former, step, count);
    applyColours(state.chosen, colourSchemes[static_cast<std::size_t>(index)]);
}

// Sets the sizes of the three fonts in a fixed proportion.
void changeFontSize(SetupState& state, int step) {
    const int size = std::clamp(fontSize(state) + step * fontStep, smallestFont, largestFont);
    state.chosen.set("Settings", "Fontsize", std::to_string(size));
    state.chosen.set("Settings", "MenuFontSize", std::to_string(std::max(size * 5 / 6, 8)));
    state.chosen.set("Settings", "StatusBarFontSize", std::to_string(std::max(size * 3 / 4, 8)));
}

PageLine valueLine(SetupState& state, const std::string& label, const std::string& value,
                   const std::string& detail, void (*change)(SetupState&, int)) {
    PageLine line{label, {"<  " + value + "  >"}, detail, nullptr, nullptr, nullptr};
    line.step = [&state, change](int direction) { change(state, direction); };
    line.choose = [step = line.step] {
        step(1);
        return PageAction::stay;
    };
    return line;
}

} // namespace

PageContent screenPage(SetupState& state) {
    const int scheme = chosenScheme(state.chosen);
    const bool isTable = state.chosen.value("Settings", "InvertPlayer2Screen") != "0";
    PageContent content;
    content.title = "Screen";
    content.help = "Change the first line until the text reads properly and the arrow points up.";
    content.columns = {{"", 52}};
    content.keys = "Arrows: move, change    Enter: change, choose    Esc: back";
    content.lines = {
        valueLine(state, "The monitor is turned", turns[chosenTurn(state)].meaning,
                  "A monitor that stands on its side: the picture is turned the other way.", changeTurn),
        valueLine(state, "Cocktail table", isTable ? "yes" : "no",
                  "Two players face each other: the screen turns to the one who moves.", changeCocktail),
        valueLine(state, "Colours",
                  scheme < 0 ? "as they are" : colourSchemes[static_cast<std::size_t>(scheme)].name,
                  "For the list, the menu and the status bar.", changeColours),
        valueLine(state, "Font size", std::to_string(fontSize(state)),
                  "Of the list. Menu and status bar follow.", changeFontSize),
        {continueLabel, {}, "", [] { return PageAction::forward; }, nullptr, nullptr},
    };
    content.selected = content.lines.size() - 1;
    content.preview = drawScreenPreview;
    return content;
}
