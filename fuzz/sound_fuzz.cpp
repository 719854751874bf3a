// SPDX-License-Identifier: GPL-3.0-or-later
// Wave sounds: decoding a whole file and converting it for the sound device gives whole samples, never more
// than the limit. The last bytes of the input are the device's form.
#include "platform/sound/wave_sound.h"
#include "support/fuzz_input.h"
#include "support/scratch_folder.h"

#include <array>

namespace {

constexpr std::array<int, 4> frequencies = {48000, 44100, 11025, 192000};
constexpr std::array<int, 4> channelCounts = {2, 1, 6, 8};
constexpr std::size_t mostBytes = std::size_t{64} << 20;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const int frequency = frequencies.at(static_cast<std::size_t>(input.number(0, 3)));
    const int channels = channelCounts.at(static_cast<std::size_t>(input.number(0, 3)));
    writeScratchFile("a.wav", input.rest());
    const std::vector<std::uint8_t> samples = loadWaveSound("a.wav", frequency, channels);
    require(samples.size() <= mostBytes && samples.size() % (2 * static_cast<std::size_t>(channels)) == 0);
    return 0;
}
