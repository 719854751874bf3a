// SPDX-License-Identifier: GPL-3.0-or-later
// Detects which of some expected tones a recording contains, in slices of 20 milliseconds. Used by the tests
// of sounds and movies.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

struct Tone {
    char letter;  // represents the tone in the results
    double pitch; // in Hz
};

constexpr int sliceMilliseconds = 20;

// Returns the amplitude of one frequency, in sample units.
inline double amplitudeOf(const std::vector<double>& slice, double pitch, int rate) {
    double real = 0;
    double imaginary = 0;
    for (std::size_t index = 0; index < slice.size(); ++index) {
        const double angle = 2 * std::numbers::pi * pitch * static_cast<double>(index) / rate;
        real += slice[index] * std::cos(angle);
        imaginary += slice[index] * std::sin(angle);
    }
    return 2 * std::hypot(real, imaginary) / static_cast<double>(slice.size());
}

// Returns one letter per slice: that of the dominant tone, '.' for silence, '?' for anything else. The
// recording has two channels of 16-bit samples; only the left one is analysed. rate: frames per second.
inline std::string detectTones(const std::string& recording, int rate, const std::vector<Tone>& tones) {
    const std::size_t length = static_cast<std::size_t>(rate) * sliceMilliseconds / 1000;
    std::string result;
    for (std::size_t start = 0; (start + length) * 4 <= recording.size(); start += length) {
        std::vector<double> slice;
        for (std::size_t frame = start; frame < start + length; ++frame) {
            const int low = static_cast<unsigned char>(recording[frame * 4]);
            const int high = static_cast<signed char>(recording[frame * 4 + 1]);
            slice.push_back(high * 256 + low);
        }
        double power = 0;
        for (const double sample : slice) {
            power += sample * sample / static_cast<double>(slice.size());
        }
        char letter = std::sqrt(power) < 300 ? '.' : '?';
        for (const Tone& tone : tones) {
            if (letter == '?' && amplitudeOf(slice, tone.pitch, rate) > std::sqrt(power)) {
                letter = tone.letter;
            }
        }
        result += letter;
    }
    return result;
}

// Returns the letters without consecutive repetitions, such as ".A.B".
inline std::string withoutRepeats(const std::string& letters) {
    std::string result;
    for (const char letter : letters) {
        if (result.empty() || result.back() != letter) {
            result += letter;
        }
    }
    return result;
}
