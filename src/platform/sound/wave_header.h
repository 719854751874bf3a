// SPDX-License-Identifier: GPL-3.0-or-later
// Parses and validates the header of a wave file: its coding, and the offset and size of its sound data.
// Called by wave_sound.cpp before anything is decoded. The bytes are untrusted; nothing is allocated. Reading
// the file and decoding are left to the caller.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

enum class WaveCoding : std::uint16_t {
    pcm = 1,
    msAdpcm = 2,
    floating = 3,
    aLaw = 6,
    muLaw = 7,
    imaAdpcm = 17
};

struct WaveHeader {
    WaveCoding coding = WaveCoding::pcm;
    int channels = 0;              // 1 to 8
    int frequency = 0;             // hertz, 4,000 to 192,000
    int bits = 0;                  // of a sample
    int blockBytes = 0;            // ADPCM: one block; otherwise one sample of each channel
    int blockFrames = 0;           // maximum samples per channel in a block
    std::string_view extension;    // format chunk beyond its 16 fixed bytes, ADPCM only; a view of `start`
    std::uint64_t soundOffset = 0; // bytes from the start of the file
    std::uint64_t soundBytes = 0;  // whole blocks within the file
};

// Parses the header from `start`, the first bytes of a file of `fileSize` bytes. The fields of the result are
// within the bounds stated above and consistent with each other. Returns nothing if the file is not RIFF
// WAVE, its coding is unsupported, a value is out of bounds, or the sound data begins beyond `start`.
std::optional<WaveHeader> readWaveHeader(std::string_view start, std::uint64_t fileSize);

// Returns the maximum number of samples per channel that the sound can contain.
std::uint64_t waveFrames(const WaveHeader& header);

// Returns the size in bytes of `frames` samples per channel after conversion to 16-bit samples of the given
// frequency (hertz) and number of channels.
std::uint64_t convertedWaveBytes(const WaveHeader& header, std::uint64_t frames, int frequency, int channels);
