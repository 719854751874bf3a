// SPDX-License-Identifier: GPL-3.0-or-later
// Loads wave files as samples in the device's format. Called by the sound device, which plays them. A file is
// read, decoded and converted in pieces, so that peak memory use is close to the size of the result.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Returns the whole sound as interleaved 16-bit samples at the given frequency (hertz) and number of
// channels. Returns an empty vector if the path is not a regular file, the header is invalid (wave_header.h),
// or the result would exceed 64 MiB. A sound that is damaged further on ends where decoding fails.
std::vector<std::uint8_t> loadWaveSound(const std::string& path, int frequency, int channels);
