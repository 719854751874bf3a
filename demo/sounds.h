// SPDX-License-Identifier: GPL-3.0-or-later
// The synthesised sounds of the demonstration cabinet: five effects and a background track that loops without
// a gap. Called when the cabinet is created; movies and tests use the notes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

constexpr int soundRate = 22050; // samples a second

using Samples = std::vector<std::int16_t>;

// A decaying note with the sound of a chip, between sine and square wave.
struct Note {
    double start; // seconds
    double length;
    double pitch;     // hertz
    double slide;     // change of pitch, hertz per second
    double volume;    // 0 to 1
    double sharpness; // 0 a sine, 1 nearly a square
};

Samples play(const std::vector<Note>& notes, double seconds);

// A wave file with 16 bits and one channel.
std::string waveFile(const Samples& samples, int rate = soundRate);

// Writes the missing sounds into the folder. On a write error returns false with a message in `problem`.
bool layOutSounds(const std::string& folder, std::string& problem);
