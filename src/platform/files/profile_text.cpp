// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/profile_text.h"

#include <strings.h>

#include <algorithm>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
// The carriage return of a line end is treated as a blank, so that only the line feed ends a line.
constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(blanks) + 1));
    return text;
}

// Returns an empty value as a view at the start of `text`, so that a new value is written before the blanks.
std::string_view trimmedValue(std::string_view text) {
    const std::string_view value = trimmed(text);
    return value.empty() ? text.substr(0, 0) : value;
}

bool equalNames(std::string_view first, std::string_view second) {
    return first.size() == second.size() && strncasecmp(first.data(), second.data(), first.size()) == 0;
}

bool isQuoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
           value.front() == value.back();
}

// Quotes the value where it would otherwise not be read back unchanged.
std::string encoded(std::string_view value) {
    std::string line(value);
    if (isQuoted(value) || trimmed(value).size() != value.size()) {
        line = '"' + line + '"';
    }
    return line;
}

// Removes the next line from the front of `rest` and returns it without its line feed.
std::string_view takeLine(std::string_view& rest) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
}

} // namespace

std::string_view trimmedName(std::string_view name) {
    return trimmed(name);
}

bool isWritableSection(std::string_view name) {
    return name.find_first_of("]\r\n") == std::string_view::npos;
}

bool isWritableKey(std::string_view name) {
    return !name.empty() && name.front() != ';' && name.front() != '[' &&
           name.find_first_of("=\r\n") == std::string_view::npos;
}

ProfileText::ProfileText(std::string text) : text_(std::move(text)) {
    std::string_view rest = text_;
    if (rest.starts_with(byteOrderMark)) {
        begin_ = byteOrderMark.size();
        rest.remove_prefix(begin_);
    }
    while (!rest.empty()) {
        const std::size_t lineBegin = text_.size() - rest.size();
        const std::string_view line = trimmed(takeLine(rest));
        if (!line.starts_with('[')) {
            continue;
        }
        if (!sections_.empty()) {
            sections_.back().end = lineBegin;
        }
        const std::string_view name = line.substr(1, line.find(']') - 1);
        sections_.push_back({trimmed(name), text_.size() - rest.size(), text_.size()});
    }
}

const ProfileText::Section* ProfileText::findSection(std::string_view name) const {
    const auto found = std::find_if(sections_.begin(), sections_.end(), [name](const Section& section) {
        return equalNames(section.name, name);
    });
    return found == sections_.end() ? nullptr : &*found;
}

std::optional<std::string_view> ProfileText::rawValue(const Section& section, std::string_view key) const {
    std::string_view rest = std::string_view(text_).substr(section.begin, section.end - section.begin);
    while (!rest.empty()) {
        const std::string_view line = takeLine(rest);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            continue;
        }
        const std::string_view name = trimmed(line.substr(0, equals));
        if (!name.starts_with(';') && equalNames(name, key)) {
            return trimmedValue(line.substr(equals + 1));
        }
    }
    return std::nullopt;
}

std::optional<std::string_view> ProfileText::value(std::string_view section, std::string_view key) const {
    const Section* found = findSection(section);
    std::optional<std::string_view> text = found ? rawValue(*found, key) : std::nullopt;
    if (text && isQuoted(*text)) {
        text = text->substr(1, text->size() - 2);
    }
    if (text) {
        text = text->substr(0, text->find('\0'));
    }
    return text;
}

// Returns the end of the last line that is neither blank nor a comment: blank lines and comments before the
// next header belong to that header.
std::size_t ProfileText::endOfContent(const Section& section) const {
    std::size_t end = section.begin;
    std::string_view rest = std::string_view(text_).substr(section.begin, section.end - section.begin);
    while (!rest.empty()) {
        const std::string_view line = trimmed(takeLine(rest));
        if (!line.empty() && !line.starts_with(';')) {
            end = section.end - rest.size();
        }
    }
    return end;
}

// Returns the line end of the preceding line, or else that of the first line.
std::string_view ProfileText::lineEndBefore(std::size_t at) const {
    std::size_t feed = at > 0 && text_[at - 1] == '\n' ? at - 1 : text_.find('\n');
    const bool withReturn = feed != std::string::npos && feed > 0 && text_[feed - 1] == '\r';
    return withReturn ? "\r\n" : "\n";
}

// Inserts one or two lines. A text whose last line has no line end is left without one. `second` is empty
// when there is only one line.
std::string ProfileText::withLines(std::size_t at, std::string_view first, std::string_view second) const {
    const std::string_view lineEnd = lineEndBefore(at);
    std::string lines(first);
    if (!second.empty()) {
        lines.append(lineEnd).append(second);
    }
    const bool afterUnterminatedLine = at > begin_ && text_[at - 1] != '\n';
    lines.insert(afterUnterminatedLine ? 0 : lines.size(), lineEnd);
    return std::string(text_).insert(at, lines);
}

std::string ProfileText::withValue(std::string_view section, std::string_view key,
                                   std::string_view value) const {
    const Section* found = findSection(section);
    const std::string written = encoded(value);
    if (!found) {
        return withLines(text_.size(), "[" + std::string(section) + "]", std::string(key) + "=" + written);
    }
    if (const std::optional<std::string_view> former = rawValue(*found, key)) {
        return std::string(text_).replace(static_cast<std::size_t>(former->data() - text_.data()),
                                          former->size(), written);
    }
    return withLines(endOfContent(*found), std::string(key) + "=" + written, {});
}
