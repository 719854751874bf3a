#include "platform/resample_rows.h"

#include <algorithm>

namespace {

constexpr int rowShift = weightBits - mixedBits;
constexpr int pixelShift = weightBits + mixedBits;

} // namespace

void mixRows(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
             int length) {
    for (int i = 0; i < length; ++i) {
        std::int32_t sum = 1 << (rowShift - 1);
        for (int tap = 0; tap < count; ++tap) {
            sum += rows[tap][i] * weights[tap];
        }
        mixed[i] = static_cast<std::int16_t>(sum >> rowShift);
    }
}

void mixColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights, int taps,
                std::uint32_t* pixels, int count) {
    for (int i = 0; i < count; ++i) {
        std::uint32_t pixel = 0;
        for (int channel = 0; channel < 3; ++channel) {
            std::int32_t sum = 1 << (pixelShift - 1);
            for (int tap = 0; tap < taps; ++tap) {
                sum += mixed[starts[i] + 3 * tap + channel] * weights[i * taps + tap];
            }
            const std::int32_t value = std::clamp(sum >> pixelShift, 0, 255);
            pixel |= static_cast<std::uint32_t>(value) << (8 * channel);
        }
        pixels[i] = pixel;
    }
}
