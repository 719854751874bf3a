// SPDX-License-Identifier: GPL-3.0-or-later
#include "sounds.h"

#include "cabinet.h"
#include "riff.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <system_error>

namespace {

constexpr double attackSeconds = 0.004;

// Equal temperament; 0 is the A of 440 hertz.
double pitchOf(int halfTones) {
    return 440 * std::exp2(halfTones / 12.0);
}

double shapeOf(const Note& note, double time) {
    double attack = std::min(1.0, time / attackSeconds);
    double release = std::min(1.0, (note.length - time) / attackSeconds);
    return attack * release * std::exp(-2.5 * time / note.length);
}

double waveOf(const Note& note, double time) {
    double turns = note.pitch * time + note.slide * time * time / 2;
    double sine = std::sin(2 * std::numbers::pi * turns);
    double square = std::tanh(6 * sine);
    return sine + (square - sine) * note.sharpness;
}

Samples startupSound() {
    std::vector<Note> notes;
    const int tones[] = {-9, -5, -2, 3, 7, 10, 15};
    double start = 0;
    for (int tone : tones) {
        notes.push_back({start, 0.4, pitchOf(tone), 0, 0.35, 0.5});
        start += 0.09;
    }
    return play(notes, 1.1);
}

Samples shutdownSound() {
    return play({{0.0, 0.25, pitchOf(7), 0, 0.4, 0.5},
                 {0.18, 0.25, pitchOf(3), 0, 0.4, 0.5},
                 {0.36, 0.55, pitchOf(-5), -40, 0.4, 0.5}},
                0.95);
}

Samples startGameSound() {
    return play({{0.0, 0.12, pitchOf(3), 0, 0.45, 0.8},
                 {0.1, 0.12, pitchOf(10), 0, 0.45, 0.8},
                 {0.2, 0.45, pitchOf(15), 300, 0.45, 0.8}},
                0.7);
}

Samples selectSound() {
    return play({{0, 0.06, 1320, -4000, 0.35, 0.3}}, 0.07);
}

Samples errorSound() {
    return play({{0, 0.09, 140, 0, 0.5, 1.0}, {0.11, 0.12, 110, 0, 0.5, 1.0}}, 0.25);
}

// Eight bars over four chords. Every note ends within the track, so that it loops without a click.
Samples ambienceTrack() {
    constexpr double beatSeconds = 0.25;
    constexpr int chords[][4] = {
        {-24, -12, -9, -5}, {-28, -16, -12, -9}, {-21, -9, -5, -2}, {-26, -14, -10, -7}};
    std::vector<Note> notes;
    for (int bar = 0; bar < 8; ++bar) {
        const int* chord = chords[bar / 2];
        for (int beat = 0; beat < 8; ++beat) {
            double start = (bar * 8 + beat) * beatSeconds;
            notes.push_back(
                {start, beatSeconds * 0.9, pitchOf(chord[1 + (beat * 5 + bar) % 3]), 0, 0.10, 0.4});
            if (beat % 4 == 0) {
                notes.push_back({start, beatSeconds * 3.5, pitchOf(chord[0]), 0, 0.22, 0.2});
            }
        }
    }
    return play(notes, 8 * 8 * beatSeconds);
}

struct DemoSound {
    const char* file;
    Samples (*make)();
};

constexpr DemoSound demoSounds[] = {
    {"startup.wav", startupSound}, {"shutdown.wav", shutdownSound}, {"start.wav", startGameSound},
    {"select.wav", selectSound},   {"error.wav", errorSound},       {"ambience.wav", ambienceTrack},
};

} // namespace

Samples play(const std::vector<Note>& notes, double seconds) {
    std::vector<double> sum(static_cast<std::size_t>(seconds * soundRate));
    for (const Note& note : notes) {
        const auto first = static_cast<std::size_t>(note.start * soundRate);
        const auto count = static_cast<std::size_t>(note.length * soundRate);
        for (std::size_t i = 0; i < count && first + i < sum.size(); ++i) {
            double time = static_cast<double>(i) / soundRate;
            sum[first + i] += note.volume * shapeOf(note, time) * waveOf(note, time);
        }
    }
    Samples samples;
    samples.reserve(sum.size());
    for (double value : sum) {
        samples.push_back(static_cast<std::int16_t>(std::clamp(value, -1.0, 1.0) * 32000));
    }
    return samples;
}

std::string waveFile(const Samples& samples, int rate) {
    std::string data;
    for (std::int16_t sample : samples) {
        appendNumber(data, static_cast<std::uint16_t>(sample), 2);
    }
    return riffChunk("RIFF", "WAVE" + riffChunk("fmt ", pcmFormat(static_cast<std::uint32_t>(rate), 1)) +
                                 riffChunk("data", data));
}

bool layOutSounds(const std::string& folder, std::string& problem) {
    std::error_code error;
    for (const DemoSound& sound : demoSounds) {
        std::string path = folder + "/" + sound.file;
        if (!std::filesystem::exists(path, error) && !writeTextFile(path, waveFile(sound.make()), problem)) {
            return false;
        }
    }
    return true;
}
