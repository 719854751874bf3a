// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/status_bar.h"

#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "platform/device_contexts.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>

std::int32_t statusBarHeight = 0;

namespace {

// Names of the values of sortBy and previewPictures.
constexpr std::array<const char*, 3> sortNames = {"Title", "Year", "Manufacturer"};
constexpr std::array<const char*, 5> pictureNames = {"Cabinets", "Screenshots", "Flyers", "Titles",
                                                     "Marquees"};

// Each of the two texts is limited to 255 characters; a longer one is truncated.
using BarText = std::array<char, 256>;

template <std::size_t count>
const char* nameOf(const std::array<const char*, count>& names, std::int32_t value) {
    const auto index = static_cast<std::size_t>(value);
    return value >= 0 && index < count ? names[index] : names[0];
}

BarText positionText(std::int32_t index) {
    BarText text{};
    const char* sortName = nameOf(sortNames, settings.sortBy);
    if (settings.menuType == menuTypeListView) {
        std::snprintf(text.data(), text.size(), "  Sort: %s - Shot: %s  %i/%i", sortName,
                      nameOf(pictureNames, settings.previewPictures), index + 1, visibleCount);
    } else {
        std::snprintf(text.data(), text.size(), "  Sort: %s  %i/%i", sortName, index + 1, visibleCount);
    }
    return text;
}

BarText gameText(const GameRecord& game) {
    BarText text{};
    const VideoInfo& video = *game.video;
    const bool raster = !video.screen || std::strcmp(video.screen, "raster") == 0;
    const char* display = raster ? "Raster" : "Vector";
    const char* mark = game.isFavourite ? "* " : "";
    const char* rotation = video.orientation == orientationVertical ? "Vertical" : "Horizontal";
    if (settings.menuType == menuTypeListView) {
        std::snprintf(text.data(), text.size(), "%s  \xA9%i %s - %s, %s", mark, game.year, game.manufacturer,
                      display, rotation);
    } else {
        std::snprintf(text.data(), text.size(), "%s  %s / \xA9%i %s - %s, %s", mark, game.description,
                      game.year, game.manufacturer, display, rotation);
    }
    return text;
}

// Where the position text starts in a bar of the given length.
std::int32_t positionStart(HDC dc, const std::string& position, LONG barLength) {
    return barLength - textWidth(dc, position.c_str()) - textMargin;
}

struct BarTexts {
    std::string game;
    std::string position;
};

// In the fixed layout a long game text runs into the position text. In the turned one it is shortened, and
// the position loses its words where they would leave less than a quarter of the bar to the game.
BarTexts textsThatFit(HDC dc, std::int32_t index, LONG barLength) {
    BarTexts texts{std::string(gameText(*visibleGames[index]).data()),
                   std::string(positionText(index).data())};
    if (settings.layout == layoutTurned) {
        if (positionStart(dc, texts.position, barLength) < barLength / 4) {
            texts.position = "  " + std::to_string(index + 1) + "/" + std::to_string(visibleCount);
        }
        const std::int32_t room = positionStart(dc, texts.position, barLength) - textMargin;
        texts.game = shortenedText(dc, texts.game.c_str(), room);
    }
    return texts;
}

} // namespace

RECT areaWithoutStatusBar(std::int32_t width, std::int32_t height) {
    const RECT frame{0, 0, width, height};
    const SIZE read = sizeAsRead(frame);
    return turnedRect(frame, {0, 0, read.cx, read.cy - statusBarHeight});
}

int drawStatusBar(HDC dc, std::int32_t index, std::int32_t width, std::int32_t height) {
    if (!settings.showStatusBar) {
        statusBarHeight = 0;
        return 1;
    }
    selectFont(dc, settings.statusBarFontFace, settings.statusBarFontSize, settings.orientation, 0);
    SetTextColor(dc, settings.statusBarForeColor);
    SetBkColor(dc, settings.statusBarBackColor);
    SetBkMode(dc, OPAQUE);
    statusBarHeight = textHeight(dc);
    const RECT frame{0, 0, width, height};
    const SIZE read = sizeAsRead(frame);
    const RECT bar = turnedRect(frame, {0, read.cy - statusBarHeight, read.cx, read.cy});
    fillRect(dc, bar, settings.statusBarBackColor);
    const BarTexts texts = textsThatFit(dc, index, read.cx);
    drawText(dc, textOrigin(bar, textMargin, 0), texts.game.c_str());
    const std::int32_t start = positionStart(dc, texts.position, read.cx);
    // Clears the end of a long game text that reaches into the position text.
    fillRect(dc, turnedRect(bar, {start, 0, read.cx, statusBarHeight}), settings.statusBarBackColor);
    drawText(dc, textOrigin(bar, start, 0), texts.position.c_str());
    return 1;
}
