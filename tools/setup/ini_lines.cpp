// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/ini_lines.h"

#include <algorithm>
#include <cctype>

namespace {

std::string_view withoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

IniLine classify(std::string_view text, int number, const std::string& section) {
    IniLine line{number, IniLineKind::other, std::string(text), section, "", ""};
    const std::string_view content = trimmed(text);
    const std::size_t equals = content.find('=');
    if (content.empty()) {
        line.kind = IniLineKind::blank;
    } else if (content.front() == ';') {
        line.kind = IniLineKind::comment;
    } else if (content.front() == '[' && content.find(']') != content.npos) {
        line.kind = IniLineKind::section;
        line.section = trimmed(content.substr(1, content.find(']') - 1));
    } else if (equals != content.npos) {
        line.kind = IniLineKind::key;
        line.key = trimmed(content.substr(0, equals));
        line.value = withoutQuotes(trimmed(content.substr(equals + 1)));
    }
    return line;
}

} // namespace

std::vector<IniLine> splitIni(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    std::vector<IniLine> lines;
    std::string section;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(classify(line, number, section));
        section = lines.back().section;
    }
    return lines;
}

bool sameName(std::string_view first, std::string_view second) {
    return std::ranges::equal(
        first, second, [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
