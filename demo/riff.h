// SPDX-License-Identifier: GPL-3.0-or-later
// Building blocks of RIFF files, whose numbers are little-endian. Used by the writers of sounds and movies.
#pragma once

#include <cstdint>
#include <string>

inline void appendNumber(std::string& text, std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

// Padded to an even length.
inline std::string riffChunk(const std::string& name, const std::string& data) {
    std::string text = name;
    appendNumber(text, static_cast<std::uint32_t>(data.size()), 4);
    text += data;
    return data.size() % 2 == 0 ? text : text + '\0';
}

inline std::string riffList(const std::string& kind, const std::string& data) {
    return riffChunk("LIST", kind + data);
}

// The format record of 16-bit PCM sound.
inline std::string pcmFormat(std::uint32_t rate, std::uint32_t channels) {
    std::string text;
    appendNumber(text, 1, 2);
    appendNumber(text, channels, 2);
    appendNumber(text, rate, 4);
    appendNumber(text, rate * channels * 2, 4);
    appendNumber(text, channels * 2, 2);
    appendNumber(text, 16, 2);
    return text;
}
