// The sound device and the one sound on it, over SDL2_mixer. Used by the
// thread of the sound service alone; every call may wait for the sound
// server. It knows nothing of the front end or of time other than its own.
#pragma once

#include <SDL_mixer.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class SoundDevice {
public:
    // Closes the device and releases what SDL keeps for the thread.
    ~SoundDevice();

    // Ends the sound that plays, opens the device when it is closed or dead, and plays the file. Gives the
    // sound's length in nanoseconds, up to the moment when its end has left the device's buffer; 0 when there
    // is nothing to hear.
    std::int64_t play(const std::string& path);

    void stop();

    // Closes the device now or, from check, after the end of the sound.
    void closeWhenSilent();
    void close();

    // Does what has become due, and the time until that wants another look.
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
    std::vector<std::uint8_t> samples_; // of the chunk
    Chunk chunk_;
    std::chrono::steady_clock::time_point nextTry_{};
};
