// SPDX-License-Identifier: GPL-3.0-or-later
// Command lines: splitting one into words, joining the words again and splitting the result gives the same
// words; the tail is the end of the line.
#include "platform/process/command_line.h"
#include "support/fuzz_input.h"

namespace {

// Quotes every word but the first as an argument; in the first a backslash is literal and a quote is doubled.
std::string joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        const bool isProgram = line.empty();
        line += isProgram ? "\"" : " \"";
        std::size_t backslashes = 0;
        for (const char letter : word) {
            if (letter == '"' && isProgram) {
                line += '"'; // doubled inside quotes
            } else if (letter == '"') {
                line.append(backslashes + 1, '\\');
            }
            line += letter;
            backslashes = letter == '\\' ? backslashes + 1 : 0;
        }
        line.append(isProgram ? 0 : backslashes, '\\');
        line += '"';
    }
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string line(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> words = splitCommandLine(line);
    require(splitCommandLine(joined(words)) == words);
    const char* tail = commandTail(line.data());
    require(tail >= line.data() && tail <= line.data() + line.size());
    return 0;
}
