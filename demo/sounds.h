// The sounds of the demonstration cabinet, all computed: five effects
// and a track that repeats without a seam. Used when the cabinet is
// laid out, and by the movies and tests, which build on the notes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

constexpr int SoundRate = 22050; // samples a second

using Samples = std::vector<std::int16_t>;

// One note of a chip: a square wave with a soft edge that dies away.
struct Note {
    double start; // seconds
    double length;
    double pitch;     // hertz
    double slide;     // hertz a second
    double volume;    // 0 to 1
    double sharpness; // 0 a sine, 1 nearly a square
};

Samples play(const std::vector<Note>& notes, double seconds);

// A wave file of 16 bits and one channel.
std::string waveFile(const Samples& samples, int rate = SoundRate);

// Writes those that are missing into the folder. False, with a line in `problem`, when one cannot be written.
bool layOutSounds(const std::string& folder, std::string& problem);
