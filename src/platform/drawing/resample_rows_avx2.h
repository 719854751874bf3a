// SPDX-License-Identifier: GPL-3.0-or-later
// The inner loops of the picture filter for processors with AVX2. Called by resample_rows_sse2.cpp, which
// checks the processor; resample_rows.h describes the parameters.
#pragma once

#include <cstdint>

void mixRowsAvx2(const std::uint8_t* const* rows, const std::int16_t* weights, int count, std::int16_t* mixed,
                 int length);
void mixColumnsAvx2(const std::int16_t* mixed, const std::int32_t* starts, const std::int16_t* weights,
                    int taps, std::uint32_t* pixels, int count);
