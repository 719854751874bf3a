#include "setup/whole_file.h"

#include "platform/files.h"

#include <array>
#include <cstdio>

std::optional<std::string> readWholeFile(const std::string& path) {
    constexpr std::size_t sizeLimit = 64 << 20;
    FILE* file = openBinaryFile(path.c_str());
    if (!file) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 65536> buffer{};
    std::size_t count = 0;
    while (text.size() <= sizeLimit && (count = std::fread(buffer.data(), 1, buffer.size(), file)) > 0) {
        text.append(buffer.data(), count);
    }
    const bool isWhole = !std::ferror(file) && text.size() <= sizeLimit;
    std::fclose(file);
    return isWhole ? std::optional(std::move(text)) : std::nullopt;
}
