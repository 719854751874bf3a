// SPDX-License-Identifier: GPL-3.0-or-later
// The content of a page of the set-up: what is drawn and what its lines do. Built by the files of the pages,
// drawn by page_drawing, run by page_window. Holds no state of its own.
#pragma once

#include "platform/types.h"

#include <functional>
#include <string>
#include <vector>

enum class PageAction {
    stay,
    forward, // to the next page
    back,    // to the page before
    leave,   // ends the set-up without writing
};

struct PageLine {
    std::string label;
    std::vector<std::string> cells; // one for each column of the page; missing ones are empty
    std::string detail;             // shown below the lines while the line is selected
    // What the controls do on the line; any may be null.
    std::function<PageAction()> choose;
    std::function<void(int)> step; // left: -1, right: 1; null: they move by several lines
    std::function<void()> clear;
};

// Columns are at the right of the labels, side by side.
struct PageColumn {
    std::string heading;
    int share;             // of the width of the lines, in percent
    bool isNumber = false; // aligned at the right
};

struct PageContent {
    std::string title;
    std::string place; // at the right of the title, such as "2 of 6"
    std::string help;
    std::vector<PageColumn> columns;
    std::vector<PageLine> lines;
    std::size_t selected = 0; // line that is selected when the page opens
    int markedColumn = -1;    // the column whose cell is highlighted in the selected line; -1: the whole line
    std::string large;        // a short text in large letters in the middle of the page
    std::string notice;       // what the last action has led to; shown instead of the detail
    std::string keys;         // what the controls do, in the bar at the bottom
    // Draws into the space between the lines and the detail, a rectangle of the surface. May be null.
    std::function<void(HDC, const RECT&)> preview;
};

// Called again after each action.
using PageBuilder = std::function<PageContent()>;

constexpr const char* usualPageKeys = "Arrows, stick: move    Enter, button 1: choose    Esc, button 2: back";
