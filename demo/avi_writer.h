// Writes a movie file as arcade cabinets have them: AVI with Motion
// JPEG pictures and PCM sound, interleaved and indexed. Used for the
// movies of the demonstration cabinet, by tests and by the benchmark.
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
    explicit AviWriter(const AviFormat& movieFormat) : format(movieFormat) {}

    // The next picture: width * height pixels 0x00RRGGBB, row by row.
    void addPicture(const std::vector<std::uint32_t>& pixels);

    // The sound of the pictures so far; in small pieces between them.
    void addSound(const std::vector<std::int16_t>& samples);

    // The whole file.
    std::string content() const;

private:
    void addChunk(const char* name, const std::string& data);
    std::string header() const;

    AviFormat format;
    std::string chunks;
    std::string index;
    std::uint32_t pictures = 0;
    std::uint32_t soundBytes = 0;
};
