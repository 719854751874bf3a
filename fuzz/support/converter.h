// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the list converter on bytes, without files on a disk. Used by the two targets of the converter.
#pragma once

#include "xml2info/list_converter.h"
#include "xml2info/list_output.h"

#include "support/fuzz_input.h"

#include <optional>
#include <sys/mman.h>
#include <unistd.h>

// Replaces the content of a file in memory and moves to its start.
inline void refill(int file, std::string_view bytes) {
    require(ftruncate(file, 0) == 0 && lseek(file, 0, SEEK_SET) == 0);
    require(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    lseek(file, 0, SEEK_SET);
}

// Returns the list file; nothing when the input holds no whole list.
inline std::optional<std::string> convertedList(std::string_view xml, const PartSizes& sizes) {
    static const int input = memfd_create("xml", 0);
    static const int output = memfd_create("list", 0);
    refill(input, xml);
    const Conversion conversion = convertList(input, sizes);
    if (!conversion.problem.empty()) {
        require(conversion.segments.empty());
        return std::nullopt;
    }
    refill(output, "");
    require(writeList(output, conversion.segments));
    std::string list(static_cast<std::size_t>(lseek(output, 0, SEEK_CUR)), '\0');
    require(pread(output, list.data(), list.size(), 0) == static_cast<ssize_t>(list.size()));
    return list;
}
