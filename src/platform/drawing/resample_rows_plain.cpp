// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/resample_rows.h"

#include <algorithm>
#include <array>

namespace {

constexpr int rowShift = weightBits - mixedBits;
constexpr int pixelShift = weightBits + mixedBits;

void mixRows(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
             int length) {
    // Fixed-size blocks with the loop over the rows outside allow the compiler to vectorise the inner loop.
    constexpr int blockLength = 64;
    for (int start = 0; start < length; start += blockLength) {
        const int blockEnd = std::min(blockLength, length - start);
        std::array<std::int32_t, blockLength> sums;
        sums.fill(1 << (rowShift - 1));
        for (int tap = 0; tap < count; ++tap) {
            const std::uint8_t* row = rows[tap] + start;
            const std::int16_t weight = weights[tap];
            for (int i = 0; i < blockEnd; ++i) {
                sums[static_cast<std::size_t>(i)] += static_cast<std::int16_t>(row[i]) * weight;
            }
        }
        for (int i = 0; i < blockEnd; ++i) {
            mixed[start + i] = static_cast<std::int16_t>(sums[static_cast<std::size_t>(i)] >> rowShift);
        }
    }
}

void mixColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights, int taps,
                std::uint32_t* pixels, int count) {
    const auto byteOf = [](std::int32_t sum) {
        return static_cast<std::uint32_t>(std::clamp(sum >> pixelShift, 0, 255));
    };
    for (int i = 0; i < count; ++i, weights += taps) {
        const std::int16_t* values = mixed + starts[i];
        std::int32_t blue = 1 << (pixelShift - 1);
        std::int32_t green = blue;
        std::int32_t red = blue;
        for (int tap = 0; tap < taps; ++tap, values += 3) {
            blue += values[0] * weights[tap];
            green += values[1] * weights[tap];
            red += values[2] * weights[tap];
        }
        pixels[i] = byteOf(red) << 16 | byteOf(green) << 8 | byteOf(blue);
    }
}

constexpr RowLoops plainLoops[] = {{mixRows, mixColumns}};

} // namespace

std::span<const RowLoops> rowLoops() {
    return plainLoops;
}
