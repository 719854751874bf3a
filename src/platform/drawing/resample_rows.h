// The two inner loops of the picture filter, in whole numbers. Called by resample.cpp only. The build takes
// resample_rows_sse2.cpp where the processor has it and resample_rows_plain.cpp elsewhere; both give the same
// result to the bit.
#pragma once

#include <cstddef>
#include <cstdint>

// The weights of one result sum to 1 << weightBits. Between the loops a value has mixedBits below the point,
// and room above it for what the filter overshoots.
constexpr int weightBits = 14;
constexpr int mixedBits = 6;

// Bytes and values that an inner loop may read beyond the last one that counts.
constexpr std::size_t mixedSlack = 8;

// Mixes `count` rows of `length` bytes into one. `count` is even.
void mixRows(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
             int length);

// Mixes neighbouring pixels of a mixed row of blue, green, red values into `count` pixels 0x00RRGGBB. Pixel i
// takes `taps` pixels from value starts[i] on, with weights[i * taps] and so on; `taps` is even.
void mixColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights, int taps,
                std::uint32_t* pixels, int count);
