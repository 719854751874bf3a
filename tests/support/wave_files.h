// SPDX-License-Identifier: GPL-3.0-or-later
// Silent wave files with any coding, including invalid ones. Used by the tests of wave sounds.
#pragma once

#include "riff.h"

#include <cstdint>
#include <string>

struct Coding {
    const char* name;  // of the test case
    std::uint32_t tag; // 1 PCM, 2 MS ADPCM, 3 float, 6 A-law, 7 mu-law, 17 IMA ADPCM
    std::uint32_t channels;
    std::uint32_t rate;
    std::uint32_t bits;
    bool extensible = false;

    bool adpcm() const { return tag == 2 || tag == 17; }
    std::uint32_t block() const { return adpcm() ? 256 * channels : channels * bits / 8; }
    std::uint32_t blockFrames() const { return tag == 2 ? 500 : tag == 17 ? 505 : 1; }
};

inline std::string formatOf(const Coding& coding) {
    std::string format;
    appendNumber(format, coding.extensible ? 0xFFFE : coding.tag, 2);
    appendNumber(format, coding.channels, 2);
    appendNumber(format, coding.rate, 4);
    appendNumber(format, coding.rate * coding.block() / coding.blockFrames(), 4);
    appendNumber(format, coding.block(), 2);
    appendNumber(format, coding.bits, 2);
    if (coding.extensible) {
        appendNumber(format, 22, 2);
        appendNumber(format, coding.bits, 2);
        appendNumber(format, 0, 4);
        appendNumber(format, coding.tag, 2);
        format.append("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
    } else if (coding.adpcm()) {
        appendNumber(format, coding.tag == 2 ? 32 : 2, 2);
        appendNumber(format, coding.blockFrames(), 2);
    }
    if (coding.tag == 2) {
        appendNumber(format, 7, 2);
        for (const int value : {256, 0, 512, -256, 0, 0, 192, 64, 240, 0, 460, -208, 392, -232}) {
            appendNumber(format, static_cast<std::uint32_t>(value), 2);
        }
    }
    return format;
}

// Returns a file with a fifth of a second of silence, rounded down to whole blocks.
inline std::string wave(const Coding& coding) {
    const std::uint32_t blocks = coding.rate / 5 / coding.blockFrames();
    return riffChunk("RIFF", "WAVE" + riffChunk("fmt ", formatOf(coding)) +
                                 riffChunk("data", std::string(blocks * coding.block(),
                                                               coding.bits == 8 ? '\x80' : '\0')));
}
