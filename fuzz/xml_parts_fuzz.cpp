// SPDX-License-Identifier: GPL-3.0-or-later
// The list converter with parts of a few bytes, which two threads parse: the list file is the same as that of
// one part, and what is damaged as a whole is damaged in parts. The last bytes of the input are the sizes of
// the parts.
#include "support/converter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    PartSizes sizes;
    sizes.usual = static_cast<std::size_t>(input.number(16, 271));
    const std::string_view xml = input.rest();
    const std::size_t tags = 2 * xml.size() + 16; // more than the root element's
    sizes.largest = tags + (sizes.usual << input.number(0, 3));
    const auto whole = convertedList(xml, {2 * tags + 65536, 2 * tags + 65536});
    const auto parts = convertedList(xml, sizes);
    require(whole ? !parts || *parts == *whole : !parts);
    return 0;
}
