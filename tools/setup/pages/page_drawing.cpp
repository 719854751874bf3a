// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/page_drawing.h"

#include "config/settings.h"
#include "platform/codepage.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/text.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <algorithm>
#include <utility>

namespace {

// A page is laid out as read in a column with an aspect ratio of at most 4:3 in the middle of the surface,
// from the top downwards; the bar at the bottom is as wide as the surface. The size of the font follows the
// size of the column, so that each page has the same number of lines and characters on every screen.
constexpr int columnsOfText = 32;
constexpr int linesOfText = 27;

enum class TextSize { bar, body, title, large };

class PageCanvas {
public:
    PageCanvas(HDC dc, const RECT& client) : dc_(dc), client_(client), size_(sizeAsRead(client)) {
        const LONG width = std::min(size_.cx, size_.cy * 4 / 3);
        em_ = std::max<LONG>(std::min(width / columnsOfText, size_.cy / linesOfText), 8);
        margin_ = em_;
        left_ = (size_.cx - width) / 2 + margin_;
        right_ = (size_.cx + width) / 2 - margin_;
        SetBkMode(dc, TRANSPARENT);
        use(TextSize::body);
    }

    HDC dc() const { return dc_; }
    SIZE size() const { return size_; }
    LONG left() const { return left_; }
    LONG right() const { return right_; }
    LONG margin() const { return margin_; }
    LONG lineHeight() const { return textHeight(dc_); }

    void use(TextSize size, bool emphasis = false) const {
        constexpr std::pair<TextSize, int> percents[] = {
            {TextSize::bar, 80}, {TextSize::body, 100}, {TextSize::title, 150}, {TextSize::large, 300}};
        const int pixels = static_cast<int>(em_) * percents[static_cast<std::size_t>(size)].second / 100;
        selectFont(dc_, settings.fontFace, MulDiv(pixels, 72, 96), settings.orientation, emphasis ? 1 : 0);
    }

    void fill(const RECT& read, COLORREF colour) const { fillRect(dc_, turnedRect(client_, read), colour); }

    RECT onSurface(const RECT& read) const { return turnedRect(client_, read); }

    void text(LONG x, LONG y, const std::string& text, COLORREF colour) const {
        SetTextColor(dc_, colour);
        drawText(dc_, textOrigin(client_, x, y), text.c_str());
    }

private:
    HDC dc_;
    RECT client_;
    SIZE size_;
    LONG em_ = 0;
    LONG margin_ = 0;
    LONG left_ = 0;
    LONG right_ = 0;
};

// A colour between text and background, for what is less important.
COLORREF mutedColour() {
    COLORREF mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const COLORREF text = settings.fontColor >> shift & 0xFF;
        const COLORREF background = settings.backgroundColor >> shift & 0xFF;
        mixed |= (text * 2 + background) / 3 << shift;
    }
    return mixed;
}

// Breaks a text at its blanks into lines that fit.
std::vector<std::string> wrappedText(HDC dc, const std::string& text, LONG width) {
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const std::string word = shortenedText(dc, text.substr(start, end - start), static_cast<int>(width));
        const std::string longer = line.empty() ? word : line + " " + word;
        if (textWidth(dc, longer.c_str()) <= width) {
            line = longer;
        } else {
            lines.push_back(std::exchange(line, word));
        }
        start = end + 1;
    }
    lines.push_back(line);
    return lines;
}

// Draws a text of several lines and returns the position below it.
LONG drawParagraph(const PageCanvas& canvas, LONG y, const std::string& text, COLORREF colour) {
    for (const std::string& line :
         wrappedText(canvas.dc(), utf8ToCodePage(text), canvas.right() - canvas.left())) {
        canvas.text(canvas.left(), y, line, colour);
        y += canvas.lineHeight();
    }
    return y;
}

// Returns the position below the title and its rule.
LONG drawTitle(const PageCanvas& canvas, const PageContent& content) {
    canvas.use(TextSize::body);
    const LONG placeWidth = textWidth(canvas.dc(), content.place.c_str());
    const LONG placeHeight = canvas.lineHeight();
    canvas.use(TextSize::title);
    LONG y = canvas.margin() / 2;
    const LONG width = canvas.right() - canvas.left() - placeWidth - canvas.margin();
    const std::string title = utf8ToCodePage(content.title);
    canvas.text(canvas.left(), y, shortenedText(canvas.dc(), title, static_cast<int>(width)),
                settings.fontColor);
    y += canvas.lineHeight();
    canvas.use(TextSize::body);
    canvas.text(canvas.right() - placeWidth, y - placeHeight, content.place, mutedColour());
    y += canvas.margin() / 8;
    const LONG thickness = std::max<LONG>(canvas.margin() / 8, 1);
    canvas.fill({canvas.left(), y, canvas.right(), y + thickness}, settings.highlightBackColor);
    return y + thickness + canvas.margin() / 2;
}

// Draws the bar at the bottom and returns its top.
LONG drawBar(const PageCanvas& canvas, const std::string& keys) {
    canvas.use(TextSize::bar);
    const LONG height = canvas.lineHeight() + canvas.margin() / 4;
    const LONG top = canvas.size().cy - height;
    canvas.fill({0, top, canvas.size().cx, canvas.size().cy}, settings.statusBarBackColor);
    canvas.text(canvas.left(), top + canvas.margin() / 8,
                shortenedText(canvas.dc(), keys, static_cast<int>(canvas.right() - canvas.left())),
                settings.statusBarForeColor);
    canvas.use(TextSize::body);
    return top;
}

// Draws the notice, or else the detail of the selected line, above the bar and returns its top.
LONG drawDetail(const PageCanvas& canvas, const PageContent& content, std::size_t selected, LONG bottom) {
    const bool isNotice = !content.notice.empty();
    const std::string detail = selected < content.lines.size() ? content.lines[selected].detail : "";
    const std::string& text = isNotice ? content.notice : detail;
    const bool hasDetails =
        std::ranges::any_of(content.lines, [](const PageLine& line) { return !line.detail.empty(); });
    const LONG width = canvas.right() - canvas.left();
    const LONG lines =
        text.empty() ? 0 : static_cast<LONG>(wrappedText(canvas.dc(), utf8ToCodePage(text), width).size());
    // The same space for each line, so that nothing moves with the selection.
    const LONG height = std::max<LONG>(lines, hasDetails ? 2 : 0) * canvas.lineHeight();
    const LONG top = bottom - height - canvas.margin() / 2;
    if (isNotice) {
        canvas.fill({0, top - canvas.margin() / 4, canvas.size().cx, bottom}, settings.highlightBackColor);
    }
    if (!text.empty()) {
        drawParagraph(canvas, top, text, isNotice ? settings.fontColor : mutedColour());
    }
    return top - canvas.margin() / 2;
}

// The left ends of the columns, and at last the right end of the lines.
std::vector<LONG> columnEdges(const PageCanvas& canvas, const PageContent& content) {
    std::vector<LONG> edges{canvas.right()};
    const LONG width = canvas.right() - canvas.left();
    for (auto column = content.columns.rbegin(); column != content.columns.rend(); ++column) {
        edges.insert(edges.begin(), edges.front() - width * column->share / 100);
    }
    return edges;
}

void drawCell(const PageCanvas& canvas, const PageColumn& column, LONG left, LONG right, LONG y,
              const std::string& text, COLORREF colour) {
    const LONG padding = canvas.margin() / 3;
    const LONG width = right - left - 2 * padding;
    const std::string fitting = shortenedText(canvas.dc(), utf8ToCodePage(text), static_cast<int>(width));
    const LONG x =
        column.isNumber ? right - padding - textWidth(canvas.dc(), fitting.c_str()) : left + padding;
    canvas.text(x, y, fitting, colour);
}

void drawLine(const PageCanvas& canvas, const PageContent& content, const PageLine& line, bool isSelected,
              LONG y, LONG rowHeight) {
    const std::vector<LONG> edges = columnEdges(canvas, content);
    const LONG padding = canvas.margin() / 3;
    // A line without values may use the whole width.
    const LONG labelEnd = line.cells.empty() ? canvas.right() : edges.front();
    if (isSelected) {
        const bool isWhole = content.markedColumn < 0 || line.cells.empty();
        const auto marked = static_cast<std::size_t>(std::max(content.markedColumn, 0));
        canvas.fill(isWhole ? RECT{canvas.left(), y, canvas.right(), y + rowHeight}
                            : RECT{edges[marked], y, edges[marked + 1], y + rowHeight},
                    settings.highlightBackColor);
    }
    canvas.use(TextSize::body, isSelected);
    const LONG textTop = y + (rowHeight - canvas.lineHeight()) / 2;
    canvas.text(canvas.left() + padding, textTop,
                shortenedText(canvas.dc(), utf8ToCodePage(line.label),
                              static_cast<int>(labelEnd - canvas.left() - 2 * padding)),
                settings.fontColor);
    for (std::size_t column = 0; column < std::min(line.cells.size(), content.columns.size()); ++column) {
        drawCell(canvas, content.columns[column], edges[column], edges[column + 1], textTop,
                 line.cells[column], settings.fontColor);
    }
    canvas.use(TextSize::body);
}

LONG drawHeadings(const PageCanvas& canvas, const PageContent& content, LONG y) {
    if (std::ranges::all_of(content.columns,
                            [](const PageColumn& column) { return column.heading.empty(); })) {
        return y;
    }
    canvas.use(TextSize::bar);
    const std::vector<LONG> edges = columnEdges(canvas, content);
    for (std::size_t column = 0; column < content.columns.size(); ++column) {
        drawCell(canvas, content.columns[column], edges[column], edges[column + 1], y,
                 content.columns[column].heading, mutedColour());
    }
    y += canvas.lineHeight();
    canvas.use(TextSize::body);
    return y;
}

// Draws the lines that fit, the selected one among them, and returns the position below them.
LONG drawLines(const PageCanvas& canvas, const PageContent& content, std::size_t selected, LONG y,
               LONG bottom) {
    if (content.lines.empty()) {
        return y;
    }
    y = drawHeadings(canvas, content, y);
    const auto count = static_cast<LONG>(content.lines.size());
    const LONG narrow = canvas.lineHeight() * 6 / 5;
    const LONG wide = content.preview || !content.large.empty() ? narrow : canvas.lineHeight() * 3 / 2;
    const LONG rowHeight = std::clamp((bottom - y) / count, narrow, wide);
    const LONG rows = std::clamp<LONG>((bottom - y) / rowHeight, 1, count);
    const LONG first = std::clamp<LONG>(static_cast<LONG>(selected) - rows / 2, 0, count - rows);
    for (LONG row = 0; row < rows; ++row) {
        const auto index = static_cast<std::size_t>(first + row);
        drawLine(canvas, content, content.lines[index], index == selected, y, rowHeight);
        y += rowHeight;
    }
    if (rows < count) { // where in the list the rows are
        const LONG track = rows * rowHeight;
        const LONG start = y - track + track * first / count;
        const LONG x = canvas.right() + canvas.margin() / 3;
        canvas.fill({x, start, x + canvas.margin() / 4, start + std::max<LONG>(track * rows / count, 4)},
                    mutedColour());
    }
    return y + canvas.margin() / 2;
}

void drawLarge(const PageCanvas& canvas, const std::string& text, LONG top, LONG bottom) {
    canvas.use(TextSize::large);
    const LONG width = canvas.right() - canvas.left();
    const std::string fitting = shortenedText(canvas.dc(), text, static_cast<int>(width));
    canvas.text(canvas.left() + (width - textWidth(canvas.dc(), fitting.c_str())) / 2,
                (top + bottom - canvas.lineHeight()) / 2, fitting, settings.fontColor);
    canvas.use(TextSize::body);
}

} // namespace

void drawPage(HDC dc, const RECT& client, const PageContent& content, std::size_t selected) {
    const PageCanvas canvas(dc, client);
    fillRect(dc, client, settings.backgroundColor);
    LONG y = drawTitle(canvas, content);
    if (!content.help.empty()) {
        y = drawParagraph(canvas, y, content.help, mutedColour()) + canvas.margin() / 2;
    }
    const LONG bar = drawBar(canvas, content.keys);
    const LONG bottom = drawDetail(canvas, content, selected, bar);
    y = drawLines(canvas, content, selected, y, bottom);
    if (!content.large.empty()) {
        drawLarge(canvas, content.large, y, bottom);
    }
    if (content.preview && bottom - y > 2 * canvas.margin()) {
        content.preview(dc, canvas.onSurface({canvas.left(), y, canvas.right(), bottom}));
    }
}

std::string shortenedText(HDC dc, const std::string& text, int width) {
    if (textWidth(dc, text.c_str()) <= width) {
        return text;
    }
    const auto keeping = [&text](std::size_t count) {
        return text.substr(0, count / 2) + "..." + text.substr(text.size() - (count - count / 2));
    };
    std::size_t fits = 0; // most characters known to fit
    for (std::size_t tooMany = text.size(); tooMany - fits > 1;) {
        const std::size_t middle = (fits + tooMany) / 2;
        (textWidth(dc, keeping(middle).c_str()) <= width ? fits : tooMany) = middle;
    }
    return keeping(fits);
}
