// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/empty_frame.h"

#include "catalogue/game_catalogue.h"
#include "config/settings.h"
#include "input/control_names.h"
#include "overlays/word_wrap.h"
#include "platform/device_contexts.h"
#include "render/primitives.h"
#include "render/turns.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

std::string reason() {
    const std::span<GameRecord* const> all(allGames, static_cast<std::size_t>(gameCount));
    const auto isGame = [](const GameRecord* game) { return game->isResource == 0; };
    const auto count = std::ranges::count_if(all, isGame);
    const bool anyRom = std::ranges::any_of(
        all, [&](const GameRecord* game) { return isGame(game) && game->romPresent != 0; });
    const std::string number = std::to_string(count);
    if (count == 0) {
        return "The game list contains no games.";
    }
    if (settings.displayMissingRoms == 0 && !anyRom) {
        return count == 1 ? std::string("The only game has no ROM in ") + settings.romsDir + "."
                          : "None of the " + number + " games has a ROM in " + settings.romsDir + ".";
    }
    return count == 1 ? "The options hide the only game." : "The options hide all " + number + " games.";
}

// Empty when nothing opens the menu.
std::string wayToTheOptions() {
    if (!settings.allowMenu) {
        return {};
    }
    const std::string key = keyName(settings.keyShowMenu);
    const std::string button = settings.useJoystick ? joystickName(settings.joyShowMenu) : "";
    const std::string either = key.empty() || button.empty() ? key + button : key + " or " + button;
    return either.empty() ? "" : "Press " + either + " to open the options.";
}

// The message, wrapped to the frame, with an empty line between its parts. The reason, which may name a long
// folder, is cut to what the other parts leave of the height.
Lines messageLines(HDC dc, SIZE read) {
    const LONG width = read.cx - 2 * textMargin;
    const auto wrapped = [&](const std::string& text) { return wrapLine(dc, text.c_str(), width); };
    Lines lines = wrapped("No games to show");
    const Lines way = wrapped(wayToTheOptions());
    Lines why = wrapped(reason());
    const std::size_t capacity = static_cast<std::size_t>(std::max(read.cy / std::max(textHeight(dc), 1), 1));
    const std::size_t others = lines.size() + way.size() + 2;
    const std::size_t most = capacity > others ? capacity - others : 1;
    if (why.size() > most) {
        why.resize(most);
        why.back() = shortenedText(dc, (why.back() + std::string(read.cx, '.')).c_str(), width);
    }
    for (const Lines& part : {why, way}) {
        if (!part.empty()) {
            lines.emplace_back();
            lines.insert(lines.end(), part.begin(), part.end());
        }
    }
    return lines;
}

} // namespace

void drawEmptyFrame(HDC dc, SIZE frame) {
    const RECT area{0, 0, frame.cx, frame.cy};
    const SIZE read = sizeAsRead(area);
    fillRect(dc, area, settings.backgroundColor);
    selectFont(dc, settings.fontFace, settings.fontSize, settings.orientation, 0);
    SetTextColor(dc, settings.fontColor);
    SetBkMode(dc, TRANSPARENT);
    const Lines lines = messageLines(dc, read);
    const LONG lineHeight = textHeight(dc);
    LONG across = std::max((read.cy - static_cast<LONG>(lines.size()) * lineHeight) / 2, 0);
    for (const std::string& line : lines) {
        drawText(dc, textOrigin(area, (read.cx - textWidth(dc, line.c_str())) / 2, across), line.c_str());
        across += lineHeight;
    }
}
