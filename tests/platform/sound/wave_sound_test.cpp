// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/wave_sound.h"

#include "riff.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr int frequency = 48000;

} // namespace

TEST(WaveSound, ConvertsInPiecesWithoutSeams) {
    const TemporaryFolder folder;
    for (const std::uint32_t rate : {44100U, 44101U, 8000U, 96000U}) {
        std::string sound;
        for (std::uint32_t index = 0; index < 3 * rate; ++index) {
            const double angle = 2 * std::numbers::pi * 400 * index / rate;
            appendNumber(sound, static_cast<std::uint32_t>(std::lround(8000 * std::cos(angle))), 2);
        }
        const std::string file =
            folder.write("tone.wav", riffChunk("RIFF", "WAVE" + riffChunk("fmt ", pcmFormat(rate, 1)) +
                                                           riffChunk("data", sound)));
        const std::vector<std::uint8_t> bytes = loadWaveSound(file, frequency, 2);
        std::vector<std::array<std::int16_t, 2>> samples(bytes.size() / 4);
        ASSERT_EQ(samples.size(), 3U * frequency);
        std::memcpy(samples.data(), bytes.data(), bytes.size());
        for (std::size_t at = 100; at < samples.size() - 100; ++at) {
            const double angle = 2 * std::numbers::pi * 400 * static_cast<double>(at) / frequency;
            ASSERT_NEAR(samples[at][0], 8000 * std::cos(angle), 80) << rate << " Hz, at " << at;
        }
    }
}
