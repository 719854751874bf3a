// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/process/command_line.h"

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

// Removes the word at the start of `rest` and returns it without quoting.
std::string takeWord(std::string_view& rest, bool isProgram) {
    std::string word;
    bool quoted = false;
    std::size_t at = 0;
    while (at < rest.size() && (quoted || !isBlank(rest[at]))) {
        std::size_t backslashes = 0;
        while (at < rest.size() && rest[at] == '\\') {
            ++backslashes;
            ++at;
        }
        const bool quote = at < rest.size() && rest[at] == '"';
        const bool escaping = quote && !isProgram;
        word.append(escaping ? backslashes / 2 : backslashes, '\\');
        if (escaping && backslashes % 2 != 0) {
            word += '"';
            ++at;
        } else if (quote && quoted && at + 1 < rest.size() && rest[at + 1] == '"') {
            word += '"';
            at += 2;
        } else if (quote) {
            quoted = !quoted;
            ++at;
        } else if (backslashes == 0) {
            word += rest[at++];
        }
    }
    rest.remove_prefix(at);
    return word;
}

} // namespace

std::vector<std::string> splitCommandLine(std::string_view commandLine) {
    std::vector<std::string> words;
    for (;;) {
        while (!commandLine.empty() && isBlank(commandLine.front())) {
            commandLine.remove_prefix(1);
        }
        if (commandLine.empty()) {
            return words;
        }
        words.push_back(takeWord(commandLine, words.empty()));
    }
}

char* commandTail(char* commandLine) {
    const auto skipBlanks = [](char* at) {
        while (isBlank(*at)) {
            ++at;
        }
        return at;
    };
    char* at = skipBlanks(commandLine);
    if (*at == '"') {
        ++at;
        while (*at != '\0' && *at != '"') {
            ++at;
        }
        if (*at == '"') {
            ++at;
        }
    } else {
        while (*at != '\0' && !isBlank(*at)) {
            ++at;
        }
    }
    return skipBlanks(at);
}
