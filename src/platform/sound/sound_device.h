// SPDX-License-Identifier: GPL-3.0-or-later
// The sound device and the sound that it plays, using SDL's audio. Used only by the device thread in
// sound.cpp, because any call may block on the sound server. Not thread-safe; uses the real clock only.
#pragma once

#include <SDL_audio.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

class SoundDevice {
public:
    // Closes the device and frees SDL's thread-local data, so it must run on the device thread.
    ~SoundDevice();

    // Stops the current sound, opens the device if it is closed or stopped, and plays the file. Returns the
    // time in nanoseconds until the end of the sound has left the device's buffer, or 0 if it cannot be
    // played.
    std::int64_t play(const std::string& path);

    void stop();

    // Closes the device, immediately if no sound plays, otherwise from check() after the sound has ended.
    void closeWhenSilent();
    void close();

    // Closes the device if that is pending and the sound has ended; timeToNextCheck() returns the interval at
    // which to call it.
    void check();
    std::chrono::milliseconds timeToNextCheck() const;

private:
    // SDL calls it on its own thread, holding the device's lock.
    static void fillBuffer(void* device, Uint8* buffer, int size);

    bool open();
    bool isAlive() const;
    bool isPlaying() const;
    void setSamples(std::vector<std::uint8_t> samples);
    std::int64_t length() const;

    SDL_AudioDeviceID device_ = 0; // 0: closed
    bool closeWhenSilent_ = false;
    int frequency_ = 0;
    int channels_ = 0;
    std::vector<std::uint8_t> samples_; // this and position_ are changed under the device's lock
    std::size_t position_ = 0;          // of the first byte that has not been played
    std::chrono::steady_clock::time_point nextTry_{};
};
