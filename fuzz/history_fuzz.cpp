// SPDX-License-Identifier: GPL-3.0-or-later
// The history file: indexing it, and reading the texts of the systems a, b and pac, also from a place that
// the index has wrong because the file has changed since.
#include "extras/history_xml.h"
#include "support/fuzz_input.h"

namespace {

void readTexts(FILE* file, const std::vector<HistoryPlace>& index) {
    for (const char* system : {"a", "b", "pac", ""}) {
        for (const std::string& line : readHistory(file, index, system)) {
            require(line.find('\n') == std::string::npos);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const int moved = input.number(0, 255);
    std::string bytes(input.rest());
    FILE* file = fmemopen(bytes.data(), bytes.size(), "r");
    if (!file) {
        return 0; // no bytes
    }
    std::vector<HistoryPlace> index;
    indexHistory(file, {}, index);
    for (const HistoryPlace& place : index) {
        require(place.entryOffset >= 0 && place.entryOffset < static_cast<std::int64_t>(bytes.size()));
        require(bytes.compare(static_cast<std::size_t>(place.entryOffset), 6, "<entry") == 0);
    }
    readTexts(file, index);
    for (HistoryPlace& place : index) {
        place.entryOffset += moved - 128;
    }
    readTexts(file, index);
    std::fclose(file);
    return 0;
}
