// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/word_wrap.h"

#include "config/settings.h"
#include "platform/diagnostics.h"
#include "platform/text.h"
#include "platform/window.h"
#include "render/primitives.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

struct Wrapper {
    HDC dc;
    LONG limit;
    std::vector<char*> wrapped;
    bool failed = false;

    bool fits(std::string_view text) {
        SIZE size{};
        if (!GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size)) {
            failed = true;
            return false;
        }
        return size.cx <= limit;
    }

    void append(std::string_view text) { wrapped.push_back(strndup(text.data(), text.size())); }

    // Returns how many characters at the start of the text fit. A longer text is never narrower, so an
    // exponential search followed by a binary search finds the number.
    std::size_t fittingLength(std::string_view text) {
        std::size_t fitting = 0;
        std::size_t tooLong = 1;
        while (fitting < text.size() && fits(text.substr(0, tooLong))) {
            fitting = tooLong;
            tooLong = std::min(2 * tooLong, text.size());
        }
        while (tooLong > fitting + 1) {
            const std::size_t middle = fitting + (tooLong - fitting) / 2;
            (fits(text.substr(0, middle)) ? fitting : tooLong) = middle;
        }
        return fitting;
    }

    // Moves one line from the start of a text that is not empty to `wrapped`.
    void takeLine(std::string_view& text) {
        const std::size_t fitting = fittingLength(text);
        std::size_t end = fitting == text.size() ? 0 : fitting + 1;
        while (end > 0 && !std::isspace(static_cast<unsigned char>(text[end - 1]))) {
            --end;
        }
        const std::size_t length = end > 0 ? end - 1 : std::max<std::size_t>(fitting, 1);
        append(text.substr(0, length));
        text.remove_prefix(end > 0 ? end : length);
    }

    void wrap(std::string_view line) {
        if (line.empty()) {
            append(line);
        }
        while (!line.empty() && !failed) {
            takeLine(line);
        }
    }
};

char** toArray(const std::vector<char*>& texts) {
    const std::size_t size = texts.size() * sizeof(char*);
    auto** array = static_cast<char**>(std::malloc(size));
    std::memcpy(static_cast<void*>(array), static_cast<const void*>(texts.data()), size);
    return array;
}

} // namespace

char** wordWrapText(HWND window, HDC dc, const char* const* lines, std::int32_t count,
                    std::int32_t* outCount) {
    RECT client{};
    GetClientRect(window, &client);
    const LONG length = isQuarterTurn(settings.orientation) ? client.bottom : client.right;
    Wrapper wrapper{dc, length - 2 * textMargin, {}, false};
    for (std::int32_t line = 0; line < count && !wrapper.failed; ++line) {
        wrapper.wrap(lines[line]);
    }
    *outCount = 0;
    if (wrapper.failed) {
        writeDiagnostic(standardOutput, "GetTextExtentPoint32 failed in wordWrapText()!", "");
        for (char* line : wrapper.wrapped) {
            std::free(line);
        }
        return nullptr;
    }
    if (wrapper.wrapped.empty()) {
        return nullptr;
    }
    *outCount = static_cast<std::int32_t>(wrapper.wrapped.size());
    return toArray(wrapper.wrapped);
}

std::vector<std::string> wrapLine(HDC dc, const char* line, LONG width) {
    Wrapper wrapper{dc, width, {}, false};
    if (*line != '\0') {
        wrapper.wrap(line);
    }
    std::vector<std::string> lines;
    for (char* text : wrapper.wrapped) {
        lines.emplace_back(text);
        std::free(text);
    }
    return lines;
}
