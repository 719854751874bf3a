// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a movie file in the common format of attract movies: AVI with Motion JPEG pictures and PCM sound,
// interleaved and indexed. Used for the movies of the demonstration cabinet, by tests and by media_bench.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct AviFormat {
    int width;
    int height;
    int framesPerSecond;
    int soundRate; // samples a second, 16 bits, one channel; 0 for a silent movie
};

class AviWriter {
public:
    explicit AviWriter(const AviFormat& movieFormat) : format_(movieFormat) {}

    // Appends a picture: width * height pixels 0x00RRGGBB, row by row.
    void addPicture(const std::vector<std::uint32_t>& pixels);

    // Appends sound. Call it between pictures with the sound of about one picture, so that both are
    // interleaved.
    void addSound(const std::vector<std::int16_t>& samples);

    // The complete file.
    std::string content() const;

private:
    void addChunk(const char* name, const std::string& data);
    std::string header() const;

    AviFormat format_;
    std::string chunks_;
    std::string index_;
    std::uint32_t pictures_ = 0;
    std::uint32_t soundBytes_ = 0;
};
