// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/primitives.h"

#include "app/error_box.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "platform/device_contexts.h"
#include "platform/drawing.h"
#include "platform/drawing_objects.h"
#include "platform/message_box.h"
#include "platform/text.h"
#include "platform/window.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace {

constexpr LONG emphasisWeight = 800;
constexpr int pointsPerInch = 72;

constexpr std::int32_t maximumSize = 32767; // pixels; exceeds any frame

// Escapement is in tenths of a degree counter-clockwise, rotation in degrees clockwise.
constexpr LONG escapementPerDegree = -10;

// The height of an area as read.
std::int32_t heightAsRead(std::int32_t width, std::int32_t height) {
    return isQuarterTurn(settings.orientation) ? width : height;
}

// Turns a point clockwise by the rotation. width and height are the size of the surface after turning.
void turnPoint(std::int32_t rotation, std::int32_t& x, std::int32_t& y, std::int32_t width,
               std::int32_t height) {
    const std::int32_t oldX = x;
    switch (rotation) {
    case 90:
        x = width - y;
        y = oldX;
        break;
    case -90:
        x = y;
        y = height - oldX;
        break;
    case 180:
        x = width - x;
        y = height - y;
        break;
    default:
        break;
    }
}

} // namespace

bool isQuarterTurn(std::int32_t rotation) {
    return rotation == 90 || rotation == -90;
}

std::int32_t oppositeRotation(std::int32_t rotation) {
    return isQuarterTurn(rotation) ? -rotation : rotation;
}

int selectFont(HDC dc, const char* faceName, std::int32_t points, std::int32_t rotation, int emphasis) {
    LOGFONTA description{};
    description.lfHeight = -MulDiv(points, GetDeviceCaps(dc, LOGPIXELSY), pointsPerInch);
    description.lfEscapement = rotation * escapementPerDegree;
    if (emphasis) {
        description.lfWeight = emphasisWeight;
        description.lfItalic = 1;
    }
    std::snprintf(description.lfFaceName, sizeof(description.lfFaceName), "%s", faceName);
    const HFONT font = CreateFontIndirectA(&description);
    if (!font) {
        return 0;
    }
    DeleteObject(SelectObject(dc, font));
    return 1;
}

std::int32_t textHeight(HDC dc) {
    TEXTMETRICA metrics{};
    if (!GetTextMetricsA(dc, &metrics)) {
        showError(mainWindow, "GetTextMetrics failed!");
        return 0;
    }
    return metrics.tmHeight - metrics.tmExternalLeading;
}

std::int32_t textWidth(HDC dc, const char* text) {
    SIZE size{};
    if (!GetTextExtentPoint32A(dc, text, static_cast<int>(std::strlen(text)), &size)) {
        showError(mainWindow, "GetTextExtentPoint32 failed!");
        return 0;
    }
    return size.cx;
}

std::string shortenedText(HDC dc, const char* text, std::int32_t width) {
    if (textWidth(dc, text) <= width) {
        return text;
    }
    const std::string whole = text;
    const auto ending = [&](std::size_t length) {
        const std::size_t lastLetter = whole.find_last_not_of(' ', length - 1);
        return (length == 0 ? "" : whole.substr(0, lastLetter + 1)) + "...";
    };
    std::size_t fitting = 0;
    std::size_t tooLong = whole.size();
    while (tooLong > fitting + 1) {
        const std::size_t middle = fitting + (tooLong - fitting) / 2;
        (textWidth(dc, ending(middle).c_str()) <= width ? fitting : tooLong) = middle;
    }
    return ending(fitting);
}

std::int32_t linesThatFit(HDC dc, std::int32_t width, std::int32_t height, std::int32_t reserved) {
    return (heightAsRead(width, height) - reserved) / std::max(textHeight(dc), 1);
}

std::int32_t tileRows(std::int32_t width, std::int32_t height, std::int32_t reserved) {
    const std::int32_t spacer = tileSpacer();
    return (heightAsRead(width, height) - spacer - reserved) /
           std::max(spacer + std::clamp(settings.previewModeHeight, 0, maximumSize), 1);
}

std::int32_t tileSpacer() {
    return std::clamp(settings.previewModeSpacer, 0, maximumSize);
}

void rotatePoint(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height) {
    turnPoint(settings.orientation, x, y, width, height);
}

void rotatePointBack(std::int32_t& x, std::int32_t& y, std::int32_t width, std::int32_t height) {
    if (isQuarterTurn(settings.orientation)) {
        std::swap(width, height);
    }
    turnPoint(oppositeRotation(settings.orientation), x, y, width, height);
}

POINT textOrigin(const RECT& rect, std::int32_t along, std::int32_t across) {
    rotatePoint(along, across, rect.right - rect.left, rect.bottom - rect.top);
    return {rect.left + along, rect.top + across};
}

void fillRect(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void drawText(HDC dc, POINT origin, const char* text) {
    TextOutA(dc, origin.x, origin.y, text, static_cast<int>(std::strlen(text)));
}
