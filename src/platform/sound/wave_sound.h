// Wave files as samples for a device: read, decoded and converted in pieces, so that the memory of a sound is
// that of its result. Called by the sound device. It plays nothing and reports nothing but by its result.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The whole sound as 16-bit samples of that frequency and number of channels. Empty for silence: no plain
// file, no wave file whose header makes sense, or more than 64 MiB of samples.
std::vector<std::uint8_t> loadWaveSound(const std::string& path, int frequency, int channels);
