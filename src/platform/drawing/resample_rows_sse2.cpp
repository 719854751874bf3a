// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drawing/resample_rows.h"
#include "platform/drawing/resample_rows_avx2.h"

#include <emmintrin.h>

#include <cstring>

namespace {

constexpr int rowShift = weightBits - mixedBits;
constexpr int pixelShift = weightBits + mixedBits;
constexpr int bytesAtOnce = 16;

__m128i loadBytes(const void* bytes) {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

// Two adjacent weights, repeated four times.
__m128i loadPair(const std::int16_t* weights) {
    std::int32_t pair = 0;
    std::memcpy(&pair, weights, sizeof(pair));
    return _mm_set1_epi32(pair);
}

std::int16_t mixOne(const std::uint8_t* const* rows, const std::int16_t* weights, int count, int i) {
    std::int32_t sum = 1 << (rowShift - 1);
    for (int tap = 0; tap < count; ++tap) {
        sum += rows[tap][i] * weights[tap];
    }
    return static_cast<std::int16_t>(sum >> rowShift);
}

// The sums of one pixel: blue, green, red and an unused fourth.
__m128i mixPixel(const std::int16_t* values, const std::int16_t* weights, int taps) {
    __m128i sum = _mm_set1_epi32(1 << (pixelShift - 1));
    for (int tap = 0; tap < taps; tap += 2, values += 6) {
        const __m128i first = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(values));
        const __m128i second = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(values + 3));
        const __m128i both = _mm_unpacklo_epi16(first, second);
        sum = _mm_add_epi32(sum, _mm_madd_epi16(both, loadPair(weights + tap)));
    }
    return _mm_srai_epi32(sum, pixelShift);
}

__m128i packPixels(__m128i a, __m128i b, __m128i c, __m128i d) {
    const __m128i bytes = _mm_packus_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d));
    return _mm_and_si128(bytes, _mm_set1_epi32(0x00FFFFFF));
}

// Here and in mixAllRows, a tap count known at compile time lets the compiler unroll the loop over the taps.
// Every enlargement has 4 taps.
template <int knownTaps>
void mixAllColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights,
                   int anyTaps, std::uint32_t* pixels, int count) {
    const int taps = knownTaps > 0 ? knownTaps : anyTaps;
    const auto pixelAt = [=](int i) { return mixPixel(mixed + starts[i], weights + i * taps, taps); };
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i four = packPixels(pixelAt(i), pixelAt(i + 1), pixelAt(i + 2), pixelAt(i + 3));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels + i), four);
    }
    for (; i < count; ++i) {
        const __m128i one = pixelAt(i);
        pixels[i] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(packPixels(one, one, one, one)));
    }
}

template <int knownCount>
void mixAllRows(const std::uint8_t* const* rows, const std::int16_t* weights, int anyCount,
                std::int16_t* mixed, int length) {
    const int count = knownCount > 0 ? knownCount : anyCount;
    const __m128i zero = _mm_setzero_si128();
    int i = 0;
    for (; i + bytesAtOnce <= length; i += bytesAtOnce) {
        const __m128i half = _mm_set1_epi32(1 << (rowShift - 1));
        __m128i sums[] = {half, half, half, half};
        for (int tap = 0; tap < count; tap += 2) {
            const __m128i pair = loadPair(weights + tap);
            const __m128i first = loadBytes(rows[tap] + i);
            const __m128i second = loadBytes(rows[tap + 1] + i);
            const __m128i low = _mm_unpacklo_epi8(first, second);
            const __m128i high = _mm_unpackhi_epi8(first, second);
            sums[0] = _mm_add_epi32(sums[0], _mm_madd_epi16(_mm_unpacklo_epi8(low, zero), pair));
            sums[1] = _mm_add_epi32(sums[1], _mm_madd_epi16(_mm_unpackhi_epi8(low, zero), pair));
            sums[2] = _mm_add_epi32(sums[2], _mm_madd_epi16(_mm_unpacklo_epi8(high, zero), pair));
            sums[3] = _mm_add_epi32(sums[3], _mm_madd_epi16(_mm_unpackhi_epi8(high, zero), pair));
        }
        for (__m128i& sum : sums) {
            sum = _mm_srai_epi32(sum, rowShift);
        }
        auto* result = reinterpret_cast<__m128i*>(mixed + i);
        _mm_storeu_si128(result, _mm_packs_epi32(sums[0], sums[1]));
        _mm_storeu_si128(result + 1, _mm_packs_epi32(sums[2], sums[3]));
    }
    for (; i < length; ++i) {
        mixed[i] = mixOne(rows, weights, count, i);
    }
}

void mixRows(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
             int length) {
    if (count == 4) {
        mixAllRows<4>(rows, weights, count, mixed, length);
    } else {
        mixAllRows<0>(rows, weights, count, mixed, length);
    }
}

void mixColumns(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights, int taps,
                std::uint32_t* pixels, int count) {
    if (taps == 4) {
        mixAllColumns<4>(mixed, starts, weights, taps, pixels, count);
    } else {
        mixAllColumns<0>(mixed, starts, weights, taps, pixels, count);
    }
}

const RowLoops loops[] = {{mixRowsAvx2, mixColumnsAvx2}, {mixRows, mixColumns}};

} // namespace

std::span<const RowLoops> rowLoops() {
    return std::span(loops).subspan(__builtin_cpu_supports("avx2") ? 0 : 1);
}
