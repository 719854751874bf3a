// SPDX-License-Identifier: GPL-3.0-or-later
// The two inner loops of the picture filter, in fixed-point arithmetic. Called by resample.cpp only. The
// build compiles resample_rows_sse2.cpp and resample_rows_avx2.cpp on processors with SSE2 and
// resample_rows_plain.cpp elsewhere; all produce bit-identical results.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// The weights of one result sum to 1 << weightBits. Between the loops, values have mixedBits fractional bits
// and headroom for the overshoot of the filter.
constexpr int weightBits = 14;
constexpr int mixedBits = 6;

// Number of values that the loops may read beyond the end of a mixed row.
constexpr std::size_t mixedSlack = 8;

struct RowLoops {
    // Computes the weighted sum of `count` rows of `length` bytes. `count` is even.
    void (*mixRows)(const std::uint8_t* const* rows, const std::int16_t* weights, int count,
                    std::int16_t* mixed, int length);

    // Computes `count` pixels 0x00RRGGBB from a mixed row of blue, green and red values. Pixel i is the sum
    // of `taps` pixels, starting at mixed[starts[i]], weighted by weights[i * taps] onwards. `taps` is even.
    void (*mixColumns)(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights,
                       int taps, std::uint32_t* pixels, int count);
};

// Returns the loops that this processor can run, the fastest first; at least one pair.
std::span<const RowLoops> rowLoops();
