// SPDX-License-Identifier: GPL-3.0-or-later
// The sound device and the sound that it plays, using SDL2_mixer. Used only by the device thread in
// sound.cpp, because any call may block on the sound server. Not thread-safe; uses the real clock only.
#pragma once

#include <SDL_mixer.h>

#include <chrono>
#include <cstdint>
#include <memory>
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
    struct FreeChunk {
        void operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }
    };
    using Chunk = std::unique_ptr<Mix_Chunk, FreeChunk>;

    bool open();
    std::int64_t length() const;

    bool opened_ = false;
    bool closeWhenSilent_ = false;
    int frequency_ = 0;
    int channels_ = 0;
    std::vector<std::uint8_t> samples_; // referenced by chunk_
    Chunk chunk_;
    std::chrono::steady_clock::time_point nextTry_{};
};
