// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/resample_rows.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

struct Row {
    std::vector<std::int16_t> mixed;
    std::vector<std::uint32_t> pixels;
    bool operator==(const Row&) const = default;
};

// Mixes `taps` rows of `width` random pixels, with weights whose sum fits the headroom, then each `taps`
// adjacent pixels.
Row mixedBy(const RowLoops& loops, int width, int taps) {
    std::mt19937 random(static_cast<unsigned>(width * 100 + taps));
    const auto size = static_cast<std::size_t>(width);
    std::vector<std::vector<std::uint8_t>> bytes(static_cast<std::size_t>(taps),
                                                 std::vector<std::uint8_t>(3 * size));
    std::vector<const std::uint8_t*> rows;
    for (auto& row : bytes) {
        for (std::uint8_t& byte : row) {
            byte = static_cast<std::uint8_t>(random());
        }
        rows.push_back(row.data());
    }
    const int count = width - taps + 1;
    std::vector<std::int16_t> weights;
    std::vector<std::int32_t> starts;
    for (int i = 0; i < count; ++i) {
        starts.push_back(3 * (count - 1 - i));
        for (int tap = 0; tap < taps; ++tap) {
            weights.push_back(
                static_cast<std::int16_t>(static_cast<int>(random() % 40000) / taps - 8000 / taps));
        }
    }
    Row row{std::vector<std::int16_t>(3 * size + mixedSlack), std::vector<std::uint32_t>(starts.size())};
    loops.mixRows(rows.data(), weights.data(), taps, row.mixed.data(), 3 * width);
    loops.mixColumns(row.mixed.data(), starts.data(), weights.data(), taps, row.pixels.data(), count);
    return row;
}

} // namespace

// Whatever the processor, a picture has the same pixels.
TEST(ResampleRows, LoopsAgree) {
    for (const int taps : {2, 4, 6, 8, 14}) {
        for (const int width : {taps, 15, 16, 21, 33, 100}) {
            const Row expected = mixedBy(rowLoops().back(), width, taps);
            for (const RowLoops& loops : rowLoops()) {
                EXPECT_EQ(mixedBy(loops, width, taps), expected) << width << " pixels, " << taps << " taps";
            }
        }
    }
}
