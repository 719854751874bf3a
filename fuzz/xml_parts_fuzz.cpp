// SPDX-License-Identifier: GPL-3.0-or-later
// The list converter with parts of a few bytes, which two threads parse: the list file is the same as that of
// one part, and what is damaged as a whole is damaged in parts. A list that is whole is only damaged in parts
// when it has a machine inside a machine. The last bytes of the input are the sizes of the parts.
#include "support/converter.h"

namespace {

int countOf(std::string_view text, std::string_view word) {
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

// Each block has a tag, so every machine that is nested or only looks like one adds to the tags.
bool hasOtherMachines(std::string_view xml, std::string_view list) {
    return countOf(xml, "<machine") + countOf(xml, "<game") != countOf(list, "\n\tname ");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    PartSizes sizes;
    sizes.usual = static_cast<std::size_t>(input.number(16, 271));
    const std::string_view xml = input.rest();
    const std::size_t tags = 2 * xml.size() + 16; // more than the root element's
    sizes.largest = tags + (sizes.usual << input.number(0, 3));
    if (xml.find("<!ATTLIST") != std::string_view::npos) {
        return 0; // the parts have no document type, whose default values matter in invented lists only
    }
    const auto whole = convertedList(xml, {2 * tags + 65536, 2 * tags + 65536});
    const auto parts = convertedList(xml, sizes);
    require(whole || !parts);
    require(!whole || !parts || *parts == *whole);
    require(!whole || parts || hasOtherMachines(xml, *whole));
    return 0;
}
