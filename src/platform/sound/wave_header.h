// The header of a wave file: which coding it names, and where and how long its sound is. Called by the wave
// sounds before anything is decoded. It takes bytes from anywhere, allocates nothing of their size and knows
// neither files nor devices.
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
    int blockBytes = 0;            // a block of ADPCM, and otherwise one sample of each channel
    int blockFrames = 0;           // samples of a channel in a block, at most
    std::string_view extension;    // what the format record holds beyond its 16 fixed bytes, of ADPCM only
    std::uint64_t soundOffset = 0; // bytes from the start of the file
    std::uint64_t soundBytes = 0;  // whole blocks that lie inside the file
};

// Reads the header from the start of a file of so many bytes. The fields above are within the bounds stated
// there and agree with each other. Nothing for a file that is not RIFF WAVE, names another coding or values
// out of bounds, or has more before its sound than `start` holds.
std::optional<WaveHeader> readWaveHeader(std::string_view start, std::uint64_t fileSize);

// The most samples of each channel that the sound can hold.
std::uint64_t waveFrames(const WaveHeader& header);

// The bytes that so many of them take as 16-bit samples of another frequency and number of channels.
std::uint64_t convertedWaveBytes(const WaveHeader& header, std::uint64_t frames, int frequency, int channels);
