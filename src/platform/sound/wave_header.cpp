// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/wave_header.h"

#include <algorithm>

namespace {

constexpr int maxChannels = 8;
constexpr int minFrequency = 4000;
constexpr int maxFrequency = 192000;

constexpr std::size_t riffBytes = 12;
constexpr std::size_t chunkHeaderBytes = 8;
constexpr std::size_t formatBytes = 16;
constexpr std::size_t extensibleBytes = 40;
constexpr std::size_t maxExtensionBytes = 256; // 34 bytes are usual
constexpr std::uint16_t extensibleTag = 0xFFFE;

// The bytes of an extensible format's GUID that follow the two-byte tag of the coding.
constexpr std::string_view subformatSuffix("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);

std::uint32_t number(std::string_view bytes, std::size_t offset, int size) {
    std::uint32_t value = 0;
    for (int index = size - 1; index >= 0; --index) {
        value = value << 8 | static_cast<unsigned char>(bytes[offset + static_cast<std::size_t>(index)]);
    }
    return value;
}

struct Chunk {
    std::size_t offset = 0;
    std::uint32_t size = 0;
};

// Returns the first chunk of that name whose header is within `start`.
std::optional<Chunk> findChunk(std::string_view start, std::string_view name) {
    std::uint64_t offset = riffBytes;
    while (offset + chunkHeaderBytes <= start.size()) {
        const auto at = static_cast<std::size_t>(offset);
        const std::uint32_t size = number(start, at + 4, 4);
        if (start.substr(at, 4) == name) {
            return Chunk{at + chunkHeaderBytes, size};
        }
        offset += chunkHeaderBytes + std::uint64_t{size} + size % 2;
    }
    return {};
}

// Returns the tag of the coding, or 0 for an extensible format that has none or that is ADPCM.
std::uint32_t tagOf(std::string_view format) {
    const std::uint32_t tag = number(format, 0, 2);
    if (tag != extensibleTag) {
        return tag;
    }
    const bool known = format.size() >= extensibleBytes && format.substr(26, 14) == subformatSuffix;
    const std::uint32_t subformat = known ? number(format, 24, 2) : 0;
    const bool adpcm = subformat == static_cast<std::uint32_t>(WaveCoding::msAdpcm) ||
                       subformat == static_cast<std::uint32_t>(WaveCoding::imaAdpcm);
    return adpcm ? 0 : subformat; // an extensible format has no room for their parameters
}

// Returns whether the sample and block sizes are valid for the coding, and sets blockFrames.
bool setBlockFrames(WaveHeader& header) {
    const int channels = header.channels;
    const int bits = header.bits;
    header.blockFrames = 1;
    switch (header.coding) {
    case WaveCoding::pcm:
        return bits >= 8 && bits <= 32 && bits % 8 == 0 && header.blockBytes == channels * bits / 8;
    case WaveCoding::floating:
        return bits == 32 && header.blockBytes == channels * 4;
    case WaveCoding::aLaw:
    case WaveCoding::muLaw:
        return bits == 8 && header.blockBytes == channels;
    case WaveCoding::msAdpcm: {
        const int start = 7 * channels; // block header, contains two samples of each channel
        header.blockFrames = 2 + (header.blockBytes - start) * 2 / channels;
        return bits == 4 && header.blockBytes >= start;
    }
    case WaveCoding::imaAdpcm: {
        const int start = 4 * channels; // block header, contains one sample of each channel
        header.blockFrames = 1 + (header.blockBytes - start) * 2 / channels;
        return bits == 4 && header.blockBytes >= start;
    }
    default:
        return false;
    }
}

bool readFormat(std::string_view format, WaveHeader& header) {
    const std::uint32_t frequency = number(format, 4, 4);
    header.coding = static_cast<WaveCoding>(tagOf(format));
    header.channels = static_cast<int>(number(format, 2, 2));
    header.blockBytes = static_cast<int>(number(format, 12, 2));
    header.bits = static_cast<int>(number(format, 14, 2));
    if (header.channels < 1 || header.channels > maxChannels || frequency < minFrequency ||
        frequency > maxFrequency || !setBlockFrames(header)) {
        return false;
    }
    header.frequency = static_cast<int>(frequency);
    if (header.coding == WaveCoding::msAdpcm || header.coding == WaveCoding::imaAdpcm) {
        header.extension = format.substr(formatBytes, maxExtensionBytes);
    }
    return true;
}

} // namespace

std::optional<WaveHeader> readWaveHeader(std::string_view start, std::uint64_t fileSize) {
    if (start.size() < riffBytes || start.substr(0, 4) != "RIFF" || start.substr(8, 4) != "WAVE") {
        return {};
    }
    const auto format = findChunk(start, "fmt ");
    const auto sound = findChunk(start, "data");
    if (!format || !sound || format->size < formatBytes || sound->offset > fileSize ||
        format->offset + std::uint64_t{format->size} > start.size()) {
        return {};
    }
    WaveHeader header;
    if (!readFormat(start.substr(format->offset, format->size), header)) {
        return {};
    }
    header.soundOffset = sound->offset;
    header.soundBytes = std::min<std::uint64_t>(sound->size, fileSize - sound->offset);
    header.soundBytes -= header.soundBytes % static_cast<std::uint64_t>(header.blockBytes);
    return header;
}

std::uint64_t waveFrames(const WaveHeader& header) {
    return header.soundBytes / static_cast<std::uint64_t>(header.blockBytes) *
           static_cast<std::uint64_t>(header.blockFrames);
}

std::uint64_t convertedWaveBytes(const WaveHeader& header, std::uint64_t frames, int frequency,
                                 int channels) {
    const auto from = static_cast<std::uint64_t>(header.frequency);
    const std::uint64_t converted = (frames * static_cast<std::uint64_t>(frequency) + from - 1) / from;
    return converted * static_cast<std::uint64_t>(channels) * sizeof(std::int16_t);
}
