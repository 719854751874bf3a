// SPDX-License-Identifier: GPL-3.0-or-later
// This file is compiled for AVX2. It must not use inline functions of the library: the linker could choose
// their AVX2 code for callers on other processors.
#include "platform/drawing/resample_rows_avx2.h"

#include "platform/drawing/resample_rows.h"

#include <immintrin.h>

#include <cstring>

namespace {

constexpr int rowShift = weightBits - mixedBits;
constexpr int pixelShift = weightBits + mixedBits;
constexpr int bytesAtOnce = 32;
constexpr int pixelsAtOnce = 4;

std::int32_t pairAt(const std::int16_t* weights) {
    std::int32_t pair = 0;
    std::memcpy(&pair, weights, sizeof(pair));
    return pair;
}

std::int16_t mixOne(const std::uint8_t* const* rows, const std::int16_t* weights, int count, int i) {
    std::int32_t sum = 1 << (rowShift - 1);
    for (int tap = 0; tap < count; ++tap) {
        sum += rows[tap][i] * weights[tap];
    }
    return static_cast<std::int16_t>(sum >> rowShift);
}

__m256i addProducts(__m256i sum, __m256i values, __m256i pair) {
    return _mm256_add_epi32(sum, _mm256_madd_epi16(values, pair));
}

void mixBytes(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
              int i) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i half = _mm256_set1_epi32(1 << (rowShift - 1));
    __m256i sums[] = {half, half, half, half};
    for (int tap = 0; tap < count; tap += 2) {
        const __m256i pair = _mm256_set1_epi32(pairAt(weights + tap));
        const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(rows[tap] + i));
        const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(rows[tap + 1] + i));
        const __m256i low = _mm256_unpacklo_epi8(first, second);
        const __m256i high = _mm256_unpackhi_epi8(first, second);
        sums[0] = addProducts(sums[0], _mm256_unpacklo_epi8(low, zero), pair);
        sums[1] = addProducts(sums[1], _mm256_unpackhi_epi8(low, zero), pair);
        sums[2] = addProducts(sums[2], _mm256_unpacklo_epi8(high, zero), pair);
        sums[3] = addProducts(sums[3], _mm256_unpackhi_epi8(high, zero), pair);
    }
    for (__m256i& sum : sums) {
        sum = _mm256_srai_epi32(sum, rowShift);
    }
    // Each half of a register holds the values of 16 adjacent bytes.
    const __m256i low = _mm256_packs_epi32(sums[0], sums[1]);
    const __m256i high = _mm256_packs_epi32(sums[2], sums[3]);
    auto* result = reinterpret_cast<__m256i*>(mixed + i);
    _mm256_storeu_si256(result, _mm256_permute2x128_si256(low, high, 0x20));
    _mm256_storeu_si256(result + 1, _mm256_permute2x128_si256(low, high, 0x31));
}

// Here and in mixAllColumns, a tap count known at compile time lets the compiler unroll the loop over the
// taps. Every enlargement has 4 taps, a reduction by up to 1.25 has 6, by up to 1.75 it has 8.
template <int knownCount>
void mixAllRows(const std::uint8_t* const* rows, const std::int16_t* weights, int anyCount,
                std::int16_t* mixed, int length) {
    const int count = knownCount > 0 ? knownCount : anyCount;
    int i = 0;
    for (; i + bytesAtOnce <= length; i += bytesAtOnce) {
        mixBytes(rows, weights, count, mixed, i);
    }
    if (i > 0 && i < length) {
        mixBytes(rows, weights, count, mixed, length - bytesAtOnce); // overlaps the block before
        return;
    }
    for (; i < length; ++i) {
        mixed[i] = mixOne(rows, weights, count, i);
    }
}

// Puts values of the same colour of two adjacent pixels side by side, in each half of a register.
__m256i pairColors(__m256i values) {
    const __m128i order = _mm_setr_epi8(0, 1, 6, 7, 2, 3, 8, 9, 4, 5, 10, 11, -1, -1, -1, -1);
    return _mm256_shuffle_epi8(values, _mm256_broadcastsi128_si256(order));
}

// The sums of two pixels, one in each half: blue, green, red and 0.
__m256i mixPixels(const std::int16_t* first, const std::int16_t* second, const std::int16_t* firstWeights,
                  const std::int16_t* secondWeights, int taps) {
    __m256i sum = _mm256_set1_epi32(1 << (pixelShift - 1));
    for (int tap = 0; tap < taps; tap += 2, first += 6, second += 6) {
        const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(first));
        const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(second));
        const __m256i both = _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
        const __m256i pairs = _mm256_blend_epi32(_mm256_set1_epi32(pairAt(firstWeights + tap)),
                                                 _mm256_set1_epi32(pairAt(secondWeights + tap)), 0xF0);
        sum = addProducts(sum, pairColors(both), pairs);
    }
    return _mm256_srai_epi32(sum, pixelShift);
}

// Packs pixels 0 and 2 with pixels 1 and 3 into the four in order.
__m128i packPixels(__m256i even, __m256i odd) {
    const __m256i words = _mm256_packs_epi32(even, odd);
    return _mm_packus_epi16(_mm256_castsi256_si128(words), _mm256_extracti128_si256(words, 1));
}

template <int knownTaps>
void mixAllColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights,
                   int anyTaps, std::uint32_t* pixels, int count) {
    const int taps = knownTaps > 0 ? knownTaps : anyTaps;
    const auto twoPixels = [=](int a, int b) {
        return mixPixels(mixed + starts[a], mixed + starts[b], weights + a * taps, weights + b * taps, taps);
    };
    int i = 0;
    for (; i + pixelsAtOnce <= count; i += pixelsAtOnce) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels + i),
                         packPixels(twoPixels(i, i + 2), twoPixels(i + 1, i + 3)));
    }
    for (; i < count; ++i) {
        const __m256i one = twoPixels(i, i);
        pixels[i] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(packPixels(one, one)));
    }
}

} // namespace

void mixRowsAvx2(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
                 int length) {
    (count == 4   ? mixAllRows<4>
     : count == 6 ? mixAllRows<6>
     : count == 8 ? mixAllRows<8>
                  : mixAllRows<0>)(rows, weights, count, mixed, length);
}

void mixColumnsAvx2(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights,
                    int taps, std::uint32_t* pixels, int count) {
    (taps == 4   ? mixAllColumns<4>
     : taps == 6 ? mixAllColumns<6>
     : taps == 8 ? mixAllColumns<8>
                 : mixAllColumns<0>)(mixed, starts, weights, taps, pixels, count);
}
