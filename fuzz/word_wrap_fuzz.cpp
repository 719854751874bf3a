// SPDX-License-Identifier: GPL-3.0-or-later
// Word wrap: the wrapped lines contain the whole text but one blank at each break, fit the width, and can be
// drawn at any size and rotation. The last bytes of the input are width, size and rotation.
#include "overlays/word_wrap.h"
#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "platform/text.h"
#include "render/primitives.h"
#include "support/default_settings.h"
#include "support/fuzz_input.h"

#include <array>
#include <cctype>

namespace {

constexpr std::array<std::int32_t, 4> rotations = {0, 90, -90, 180};

void checkLines(HDC dc, std::string_view text, const std::vector<std::string>& lines, LONG width) {
    for (const std::string& line : lines) {
        const bool fits = textWidth(dc, line.c_str()) <= width;
        require(text.starts_with(line) && (fits || line.size() <= 1));
        text.remove_prefix(line.size());
        // A single letter that does not fit is broken off even before a blank.
        if ((fits || line.empty()) && !text.empty() &&
            std::isspace(static_cast<unsigned char>(text.front()))) {
            text.remove_prefix(1);
        }
    }
    require(text.empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    useDefaultSettings();
    static const HDC dc = CreateCompatibleDC(nullptr);
    static const HGDIOBJ bitmap = SelectObject(dc, CreateCompatibleBitmap(dc, 120, 90));
    require(bitmap != nullptr);
    FuzzInput input(data, size);
    const LONG width = input.number(-2, 253);
    const int points = input.number(1, 40);
    const std::int32_t rotation = rotations.at(static_cast<std::size_t>(input.number(0, 3)));
    const POINT origin{input.number(-60, 180), input.number(-60, 180)};
    const std::string text(input.rest().substr(0, input.rest().find('\0')));
    require(selectFont(dc, settings.fontFace, points, rotation, input.number(0, 1)) == 1);
    const std::vector<std::string> lines = wrapLine(dc, text.c_str(), width);
    checkLines(dc, text, lines, width);
    POINT at = origin;
    for (std::size_t line = 0; line < std::min<std::size_t>(lines.size(), 8); ++line) {
        drawText(dc, at, lines[line].c_str());
        at.y += points;
    }
    shortenedText(dc, text.c_str(), width);
    return 0;
}
