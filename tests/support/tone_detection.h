// What a recording holds: the loudest of some expected
// tones, in slices of 20 milliseconds. Called by the
// tests of sounds and movies. It plays nothing.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

// A letter for each slice: that of the tone that carries it, '.' for silence, '?' for anything else.
struct Tone {
    char letter;
    double pitch; // hertz
};

constexpr int sliceMilliseconds = 20;

inline double strengthOf(const std::vector<double>& slice, double pitch, int rate) {
    double real = 0;
    double imaginary = 0;
    for (std::size_t index = 0; index < slice.size(); ++index) {
        const double angle = 2 * std::numbers::pi * pitch * static_cast<double>(index) / rate;
        real += slice[index] * std::cos(angle);
        imaginary += slice[index] * std::sin(angle);
    }
    return 2 * std::hypot(real, imaginary) / static_cast<double>(slice.size());
}

// The recording is of 16 bits with two channels, of which the left one counts.
inline std::string heard(const std::string& recording, int rate, const std::vector<Tone>& tones) {
    const std::size_t length = static_cast<std::size_t>(rate) * sliceMilliseconds / 1000;
    std::string result;
    for (std::size_t start = 0; (start + length) * 4 <= recording.size(); start += length) {
        std::vector<double> slice;
        for (std::size_t frame = start; frame < start + length; ++frame) {
            const int low = static_cast<unsigned char>(recording[frame * 4]);
            const int high = static_cast<signed char>(recording[frame * 4 + 1]);
            slice.push_back(high * 256 + low);
        }
        double loudness = 0;
        for (const double sample : slice) {
            loudness += sample * sample / static_cast<double>(slice.size());
        }
        char letter = std::sqrt(loudness) < 300 ? '.' : '?';
        for (const Tone& tone : tones) {
            if (letter == '?' && strengthOf(slice, tone.pitch, rate) > std::sqrt(loudness)) {
                letter = tone.letter;
            }
        }
        result += letter;
    }
    return result;
}

// The letters without their repetitions, such as ".A.B".
inline std::string order(const std::string& letters) {
    std::string result;
    for (const char letter : letters) {
        if (result.empty() || result.back() != letter) {
            result += letter;
        }
    }
    return result;
}
