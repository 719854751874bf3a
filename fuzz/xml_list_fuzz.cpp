// SPDX-License-Identifier: GPL-3.0-or-later
// The list converter: every list file that it writes has only lines that the reader of list files knows, none
// of them longer than its buffer.
#include "support/converter.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 10> starts = {
    "\tname ",           "\tdescription \"", "\tyear ",   "\tcloneof ", "\tromof ",
    "\tmanufacturer \"", "\tvideo (",        "\tinput (", "game (",     "resource ("};

void checkLine(std::string_view line) {
    require(line.size() <= maximumLineLength);
    require(line == ")" ||
            std::ranges::any_of(starts, [line](std::string_view start) { return line.starts_with(start); }));
    require(std::ranges::none_of(line.substr(1),
                                 [](char letter) { return static_cast<unsigned char>(letter) < 0x20; }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view xml(reinterpret_cast<const char*>(data), size);
    const auto list = convertedList(xml, {std::size_t{64} << 10, std::size_t{128} << 10});
    std::string_view rest = list ? std::string_view(*list) : std::string_view();
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        require(end != std::string_view::npos);
        checkLine(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    return 0;
}
