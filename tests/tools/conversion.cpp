// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/conversion.h"

#include "xml2info/list_converter.h"
#include "xml2info/list_output.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <memory>

namespace {

using TemporaryFile = std::unique_ptr<FILE, decltype(&std::fclose)>;

TemporaryFile temporaryFile(std::string_view content) {
    TemporaryFile file(std::tmpfile(), std::fclose);
    std::fwrite(content.data(), 1, content.size(), file.get());
    std::rewind(file.get());
    return file;
}

} // namespace

std::optional<std::string> converted(std::string_view xml) {
    const TemporaryFile input = temporaryFile(xml);
    const Conversion conversion = convertList(fileno(input.get()));
    if (!conversion.problem.empty()) {
        EXPECT_TRUE(conversion.segments.empty());
        return std::nullopt;
    }
    const TemporaryFile output = temporaryFile("");
    EXPECT_TRUE(writeList(fileno(output.get()), conversion.segments));
    std::string text;
    std::rewind(output.get());
    for (int character = std::fgetc(output.get()); character != EOF; character = std::fgetc(output.get())) {
        text += static_cast<char>(character);
    }
    return text;
}
