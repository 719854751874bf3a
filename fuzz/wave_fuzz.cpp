// SPDX-License-Identifier: GPL-3.0-or-later
// Wave headers: every header that is accepted is within the bounds that the decoder relies on.
#include "platform/sound/wave_header.h"
#include "support/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const auto missing = static_cast<std::size_t>(input.number(0, 65535));
    const std::string_view file = input.rest();
    // The start of a file of which more follows, or the whole file.
    const std::uint64_t fileSize = file.size() + (missing < 60000 ? 0 : std::uint64_t{missing} << 16);
    const auto header = readWaveHeader(file, fileSize);
    if (!header) {
        return 0;
    }
    require(header->channels >= 1 && header->channels <= 8);
    require(header->frequency >= 4000 && header->frequency <= 192000);
    require(header->blockBytes >= 1 && header->blockFrames >= 1 && header->bits >= 4 && header->bits <= 32);
    require(header->soundOffset <= fileSize && header->soundBytes <= fileSize - header->soundOffset);
    require(header->soundBytes % static_cast<std::uint64_t>(header->blockBytes) == 0);
    require(header->extension.empty() ||
            (header->extension.data() >= file.data() &&
             header->extension.data() + header->extension.size() <= file.data() + file.size()));
    const std::uint64_t frames = waveFrames(*header);
    require(frames <= header->soundBytes * 2 + 2);
    convertedWaveBytes(*header, frames, 48000, 2);
    return 0;
}
