// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/screen_preview.h"

#include "config/settings.h"
#include "platform/device_contexts.h"
#include "render/primitives.h"
#include "render/turns.h"
#include "setup/pages/page_drawing.h"

#include <algorithm>
#include <string>

namespace {

constexpr const char* sampleTitles[] = {"Breakout",   "Computer Space", "Gun Fight", "Pong",
                                        "Rebound",    "Space Race",     "Tank",      "Gotcha",
                                        "Quadrapong", "Gran Trak"};
constexpr LONG selectedSample = 1;

void drawTextAt(HDC dc, const RECT& area, LONG x, LONG y, const std::string& text, LONG width) {
    drawText(dc, textOrigin(area, x, y), shortenedText(dc, text, static_cast<int>(width)).c_str());
}

void drawTitles(HDC dc, const RECT& area, LONG width, LONG height) {
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, 0);
    SetTextColor(dc, settings.fontColor);
    const LONG lineHeight = std::max(textHeight(dc), 1);
    LONG y = 0;
    LONG line = 0;
    for (const char* title : sampleTitles) {
        if (y + lineHeight > height) {
            break;
        }
        if (line == selectedSample) {
            fillRect(dc, turnedRect(area, {0, y, width, y + lineHeight}), settings.highlightBackColor);
        }
        drawTextAt(dc, area, textMargin, y, title, width - 2 * textMargin);
        y += lineHeight;
        ++line;
    }
}

// Returns the top of the bar.
LONG drawBar(HDC dc, const RECT& area, const SIZE& size) {
    selectFont(dc, settings.statusBarFontFace, settings.statusBarFontSize, settings.orientation, 0);
    const LONG top = std::max<LONG>(size.cy - textHeight(dc), 0);
    fillRect(dc, turnedRect(area, {0, top, size.cx, size.cy}), settings.statusBarBackColor);
    SetTextColor(dc, settings.statusBarForeColor);
    drawTextAt(dc, area, textMargin, top,
               "\xA9"
               "1971 Nutting Associates",
               size.cx - 2 * textMargin);
    return top;
}

// An arrow of rows, each a rectangle, with the word below it.
void drawArrow(HDC dc, const RECT& area, const RECT& box) {
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, 1);
    const LONG wordHeight = textHeight(dc);
    const LONG room = box.bottom - box.top - wordHeight;
    const LONG height = std::clamp<LONG>(room, 0, box.right - box.left);
    const LONG top = box.top + (room - height) / 2;
    const LONG centre = (box.left + box.right) / 2;
    const LONG head = height / 2;
    const LONG shaft = std::max<LONG>(head / 3, 1);
    for (LONG row = 0; row < height; ++row) {
        const LONG half = row < head ? row * 3 / 4 : shaft / 2 + 1;
        fillRect(dc, turnedRect(area, {centre - half, top + row, centre + half + 1, top + row + 1}),
                 settings.fontColor);
    }
    SetTextColor(dc, settings.fontColor);
    drawTextAt(dc, area, centre - textWidth(dc, "UP") / 2, top + height, "UP", box.right - box.left);
}

} // namespace

void drawScreenPreview(HDC dc, const RECT& area) {
    const SIZE size = sizeAsRead(area);
    constexpr LONG frame = 2;
    fillRect(dc, area, settings.statusBarBackColor);
    const RECT inside = turnedRect(area, {frame, frame, size.cx - frame, size.cy - frame});
    fillRect(dc, inside, settings.backgroundColor);
    const SIZE read = sizeAsRead(inside);
    const LONG listWidth = read.cx * 2 / 3;
    const LONG bottom = drawBar(dc, inside, read);
    drawTitles(dc, inside, listWidth, bottom);
    drawArrow(dc, inside, {listWidth, bottom / 10, read.cx, bottom - bottom / 20});
}
