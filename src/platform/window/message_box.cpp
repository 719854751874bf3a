// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/message_box.h"

#include "platform/base/end_request.h"
#include "platform/clock/clock_source.h"
#include "platform/clock/waiting.h"
#include "platform/device_contexts.h"
#include "platform/diagnostics.h"
#include "platform/display/display.h"
#include "platform/display/key_state.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/joystick.h"
#include "platform/key_codes.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/text.h"
#include "platform/window/compositor.h"
#include "platform/window/window_record.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr LPCSTR boxClass = "MessageBoxClass";
constexpr COLORREF boxColor = 0x302820;
constexpr COLORREF titleColor = 0x40C8FF;
constexpr COLORREF textColor = 0xFFFFFF;
constexpr COLORREF buttonColor = 0x806040;

constexpr std::int64_t pollInterval = 10 * nanosecondsPerMillisecond;

// How long to wait for the release of the key that closed the box, so that the front end does not take it for
// a new press. After that it counts as one.
constexpr std::int64_t longestRelease = nanosecondsPerSecond;

constexpr int answerKeys[] = {VK_RETURN, VK_ESCAPE, VK_SPACE};

struct BoxLayout {
    int unit = 0; // em height in pixels, the unit of all distances
    int width = 0;
    int height = 0;
    std::vector<std::string> lines;
};

int textWidthIn(HDC dc, std::string_view text) {
    SIZE size{};
    GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

HFONT boxFont(int height, LONG weight) {
    LOGFONTA description{};
    description.lfHeight = -height;
    description.lfWeight = weight;
    std::snprintf(description.lfFaceName, sizeof(description.lfFaceName), "Arial");
    return CreateFontIndirectA(&description);
}

// The length of the prefix of the text that fits the width, up to and including its last space if there is
// one; at least one character.
std::size_t lineLength(HDC dc, std::string_view text, int width) {
    std::size_t fits = 1;
    std::size_t lastBlank = 0;
    for (std::size_t length = 1; length <= text.size(); ++length) {
        if (textWidthIn(dc, text.substr(0, length)) > width) {
            return lastBlank > 0 ? lastBlank : fits;
        }
        fits = length;
        if (length < text.size() && text[length] == ' ') {
            lastBlank = length + 1;
        }
    }
    return fits;
}

std::vector<std::string> wrap(HDC dc, std::string_view text, int width, std::size_t mostLines) {
    std::vector<std::string> lines;
    while (!text.empty() && lines.size() < mostLines) {
        const std::size_t length = lineLength(dc, text, width);
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

BoxLayout layOut(HDC dc, std::string_view title, std::string_view text) {
    BoxLayout layout;
    int screenWidth = 0;
    int screenHeight = 0;
    displaySize(screenWidth, screenHeight);
    layout.unit = std::clamp(screenHeight / 40, 12, 40);
    DeleteObject(SelectObject(dc, boxFont(layout.unit, 400)));
    constexpr std::size_t mostLines = 12;
    layout.lines = wrap(dc, text, screenWidth * 7 / 10, mostLines);
    layout.width = std::max(textWidthIn(dc, title) + layout.unit, 8 * layout.unit);
    for (const std::string& line : layout.lines) {
        layout.width = std::max(layout.width, textWidthIn(dc, line));
    }
    layout.width += 4 * layout.unit;
    layout.height = (static_cast<int>(layout.lines.size()) * 3 / 2 + 8) * layout.unit;
    return layout;
}

void drawBox(HDC dc, const BoxLayout& layout, std::string_view title) {
    const int unit = layout.unit;
    const auto fill = [&](const RECT& rect, COLORREF color) {
        const HBRUSH brush = CreateSolidBrush(color);
        FillRect(dc, &rect, brush);
        DeleteObject(brush);
    };
    fill({0, 0, layout.width, layout.height}, boxColor);
    SetBkMode(dc, TRANSPARENT);
    DeleteObject(SelectObject(dc, boxFont(unit, 700)));
    SetTextColor(dc, titleColor);
    TextOutA(dc, 2 * unit, unit, title.data(), static_cast<int>(title.size()));
    DeleteObject(SelectObject(dc, boxFont(unit, 400)));
    SetTextColor(dc, textColor);
    int y = 3 * unit;
    for (const std::string& line : layout.lines) {
        TextOutA(dc, 2 * unit, y, line.data(), static_cast<int>(line.size()));
        y += unit * 3 / 2;
    }
    constexpr std::string_view button = "OK";
    const int centre = layout.width / 2;
    fill({centre - 3 * unit, layout.height - 3 * unit, centre + 3 * unit, layout.height - unit}, buttonColor);
    TextOutA(dc, centre - textWidthIn(dc, button) / 2, layout.height - 5 * unit / 2 - unit / 10,
             button.data(), static_cast<int>(button.size()));
}

UINT joystickButtons() {
    JOYINFO info{};
    return joyGetPos(0, &info) == JOYERR_NOERROR ? info.wButtons : 0;
}

void waitForAnswer() {
    for (const int key : answerKeys) {
        takeKeyPress(key);
    }
    displayMousePressed();
    UINT held = joystickButtons();
    for (;;) {
        waitAndKeepAlive(pollInterval);
        const UINT buttons = joystickButtons();
        const bool buttonPressed = (buttons & ~held) != 0;
        held = buttons;
        const bool keyPressed = std::any_of(std::begin(answerKeys), std::end(answerKeys),
                                            [](int key) { return takeKeyPress(key); });
        if (keyPressed || buttonPressed || displayMousePressed() || endRequested()) {
            break;
        }
    }
    const std::int64_t end = clockNow() + longestRelease;
    while (std::any_of(std::begin(answerKeys), std::end(answerKeys), keyIsDown) && clockNow() < end) {
        waitAndKeepAlive(pollInterval);
    }
}

HWND openBox(HWND owner, const BoxLayout& layout) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = boxClass;
    RegisterClassA(&windowClass);
    int screenWidth = 0;
    int screenHeight = 0;
    displaySize(screenWidth, screenHeight);
    const int width = layout.width + 2 * thickFrame;
    const int height = layout.height + 2 * thickFrame;
    return CreateWindowExA(0, boxClass, nullptr, WS_POPUP | WS_THICKFRAME, (screenWidth - width) / 2,
                           (screenHeight - height) / 2, width, height, owner, nullptr, nullptr, nullptr);
}

} // namespace

int MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT) {
    const std::string_view message = text ? text : "";
    const std::string_view heading = title ? title : "Error";
    writeDiagnostic(standardError, std::string(heading) + ": " + std::string(message));
    if (!displayIsReal() || endRequested()) {
        return IDOK;
    }
    const HDC measuring = CreateCompatibleDC(nullptr);
    const BoxLayout layout = layOut(measuring, heading, message);
    DeleteDC(measuring);
    const HWND box = openBox(findWindow(owner) ? owner : nullptr, layout);
    if (!box) {
        return IDOK;
    }
    ShowWindow(box, SW_SHOW);
    drawBox(GetDC(box), layout, heading);
    showWindowNow(box);
    waitForAnswer();
    DestroyWindow(box);
    UnregisterClassA(boxClass, nullptr);
    refreshScreen();
    return IDOK;
}
