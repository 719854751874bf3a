// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/wave_header.h"

#include "support/wave_files.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr Coding sound = {"", 1, 2, 44100, 16};

std::string file(const std::string& chunks) {
    return riffChunk("RIFF", "WAVE" + chunks);
}

std::optional<WaveHeader> headerOf(const std::string& bytes) {
    return readWaveHeader(bytes, bytes.size());
}

} // namespace

TEST(WaveHeader, AcceptsTheSupportedCodings) {
    const Coding codings[] = {
        {"8 bits", 1, 1, 4000, 8},
        {"16", 1, 8, 192000, 16},
        {"24", 1, 2, 48000, 24},
        {"32", 1, 2, 48000, 32},
        {"float", 3, 1, 22050, 32},
        {"A-law", 6, 1, 8000, 8},
        {"mu-law", 7, 2, 8000, 8},
        {"MS", 2, 2, 22050, 4},
        {"IMA", 17, 2, 22050, 4},
        {"extensible", 1, 6, 48000, 24, true},
        {"extensible float", 3, 2, 44100, 32, true},
    };
    for (const Coding& coding : codings) {
        const auto header = headerOf(wave(coding));
        ASSERT_TRUE(header) << coding.name;
        EXPECT_EQ(static_cast<std::uint32_t>(header->coding), coding.tag) << coding.name;
        EXPECT_EQ(static_cast<std::uint32_t>(header->channels), coding.channels) << coding.name;
        EXPECT_EQ(static_cast<std::uint32_t>(header->blockFrames), coding.blockFrames()) << coding.name;
        EXPECT_EQ(header->soundOffset, 20 + formatOf(coding).size() + 8) << coding.name;
        EXPECT_EQ(header->soundOffset + header->soundBytes, wave(coding).size()) << coding.name;
        EXPECT_EQ(header->extension.empty(), !coding.adpcm()) << coding.name;
        const double seconds =
            static_cast<double>(convertedWaveBytes(*header, waveFrames(*header), 48000, 2)) / (48000 * 4);
        EXPECT_NEAR(seconds, 0.2, coding.adpcm() ? 0.03 : 0.0001) << coding.name;
    }
}

TEST(WaveHeader, RejectsInvalidAndUnsupportedHeaders) {
    const Coding codings[] = {
        {"slow", 1, 1, 3999, 8},        {"fast", 1, 1, 192001, 16},
        {"no channel", 1, 0, 8000, 8},  {"nine", 1, 9, 8000, 8},
        {"12 bits", 1, 1, 8000, 12},    {"40 bits", 1, 1, 8000, 40},
        {"double", 3, 1, 8000, 64},     {"A-law of 16", 6, 1, 8000, 16},
        {"ADPCM of 3", 17, 1, 8000, 3}, {"MP3", 0x55, 2, 44100, 16},
        {"no coding", 0, 1, 8000, 8},   {"extensible ADPCM", 17, 1, 22050, 4, true},
        {"0 bits", 1, 1, 8000, 0},
    };
    for (const Coding& coding : codings) {
        EXPECT_FALSE(headerOf(wave(coding))) << coding.name;
    }
    const std::string good = wave(sound);
    std::string wrongBlock = good;
    wrongBlock[32] = 3;
    std::string tinyBlock = wave({"", 17, 2, 22050, 4});
    tinyBlock.replace(32, 2, std::string("\x07\x00", 2));
    const std::string format = riffChunk("fmt ", formatOf(sound));
    std::string otherTail = wave({"", 1, 1, 8000, 8, true});
    otherTail[50] = 1;
    for (const std::string& bytes :
         {std::string(), good.substr(0, 11), good.substr(0, 43), "RIFX" + good.substr(4),
          file(riffChunk("data", "12345678")), file(format), file(riffChunk("fmt ", "short")), wrongBlock,
          tinyBlock, otherTail, file("fmt \xFF\xFF\xFF\xFF" + formatOf(sound) + riffChunk("data", "1234"))}) {
        EXPECT_FALSE(headerOf(bytes)) << bytes.size();
    }
}

TEST(WaveHeader, CountsOnlyWholeBlocksInsideTheFile) {
    const std::string format = riffChunk("fmt ", formatOf(sound));
    const std::string tagged = file(riffChunk("LIST", "odd") + format + riffChunk("data", "123456789"));
    EXPECT_EQ(headerOf(tagged)->soundBytes, 8U);
    EXPECT_EQ(tagged.substr(headerOf(tagged)->soundOffset, 9), "123456789");
    const std::string streamed = file(format + "data\xFF\xFF\xFF\xFF" + "12345678");
    EXPECT_EQ(headerOf(streamed)->soundBytes, 8U);
    const auto endless = readWaveHeader(streamed, 1'000'000'000'000);
    EXPECT_EQ(endless->soundBytes, 0xFFFFFFFC);
    EXPECT_EQ(waveFrames(*endless), 0xFFFFFFFC / 4);
    EXPECT_EQ(convertedWaveBytes(*endless, 0xFFFFFFFC, 96000, 1),
              (0xFFFFFFFCULL * 96000 + 44099) / 44100 * 2);
}

TEST(WaveHeader, DamagedHeadersStayWithinTheirBounds) {
    std::mt19937 random(7);
    const Coding codings[] = {sound, {"", 2, 2, 22050, 4}, {"", 17, 1, 22050, 4}, {"", 1, 2, 8000, 8, true}};
    int accepted = 0;
    for (int round = 0; round < 8000; ++round) {
        std::string bytes = wave(codings[round % 4]).substr(0, 120);
        for (unsigned change = random() % 4; change > 0; --change) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        bytes.resize(random() % bytes.size());
        const std::uint64_t size = random() % 4 == 0 ? random() : bytes.size();
        const auto header = readWaveHeader(bytes, size);
        if (!header) {
            continue;
        }
        ++accepted;
        ASSERT_LE(header->soundOffset + header->soundBytes, size);
        ASSERT_GT(header->blockBytes, 0);
        ASSERT_EQ(header->soundBytes % static_cast<unsigned>(header->blockBytes), 0U);
        ASSERT_GT(header->blockFrames, 0);
        ASSERT_GE(header->frequency, 4000);
        ASSERT_LE(header->frequency, 192000);
    }
    EXPECT_GT(accepted, 500);
}
