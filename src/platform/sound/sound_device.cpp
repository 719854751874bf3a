// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sound_device.h"

#include "platform/base/alsa_messages.h"
#include "platform/clock/clock_source.h"
#include "platform/sound/wave_sound.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;

constexpr int wantedFrequency = 48000;
constexpr int wantedChannels = 2;
constexpr int bufferFrames = 1024; // 21 ms, so that a sound starts with the picture it belongs to

// Minimum time between attempts to open a device, because each attempt probes every kind of sound server.
constexpr auto retryInterval = 5s;

} // namespace

SoundDevice::~SoundDevice() {
    close();
    SDL_TLSCleanup();
}

void SoundDevice::fillBuffer(void* device, Uint8* buffer, int size) {
    auto& self = *static_cast<SoundDevice*>(device);
    const std::size_t bytes = std::min(static_cast<std::size_t>(size), self.samples_.size() - self.position_);
    std::copy_n(self.samples_.data() + self.position_, bytes, buffer);
    std::fill(buffer + bytes, buffer + size, Uint8{0});
    self.position_ += bytes;
}

bool SoundDevice::open() {
    if (device_ != 0 && isAlive()) {
        return true;
    }
    close();
    const auto now = std::chrono::steady_clock::now();
    if (now < nextTry_) {
        return false;
    }
    silenceAlsa();
    SDL_AudioSpec wanted{};
    wanted.freq = wantedFrequency;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = wantedChannels;
    wanted.samples = bufferFrames;
    wanted.callback = fillBuffer;
    wanted.userdata = this;
    SDL_AudioSpec obtained{};
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
        device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
        if (device_ == 0) {
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
        }
    }
    if (device_ == 0) {
        nextTry_ = now + retryInterval;
        return false;
    }
    frequency_ = obtained.freq;
    channels_ = obtained.channels;
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

// A device whose server has exited still accepts samples but plays nothing; SDL then reports it as stopped.
bool SoundDevice::isAlive() const {
    return SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED;
}

bool SoundDevice::isPlaying() const {
    SDL_LockAudioDevice(device_);
    const bool playing = position_ < samples_.size();
    SDL_UnlockAudioDevice(device_);
    return playing && isAlive();
}

void SoundDevice::setSamples(std::vector<std::uint8_t> samples) {
    SDL_LockAudioDevice(device_);
    samples_.swap(samples);
    position_ = 0;
    SDL_UnlockAudioDevice(device_);
}

std::int64_t SoundDevice::length() const {
    const auto frames = static_cast<std::int64_t>(samples_.size() / sizeof(std::int16_t)) / channels_;
    return frames > 0 ? (frames + 2 * bufferFrames) * nanosecondsPerSecond / frequency_ : 0;
}

std::int64_t SoundDevice::play(const std::string& path) {
    stop();
    closeWhenSilent_ = false;
    if (!open()) {
        return 0;
    }
    setSamples(loadWaveSound(path, frequency_, channels_));
    return length();
}

void SoundDevice::stop() {
    if (device_ != 0) {
        setSamples({});
    }
}

void SoundDevice::closeWhenSilent() {
    closeWhenSilent_ = device_ != 0;
    check();
}

void SoundDevice::check() {
    if (closeWhenSilent_ && !isPlaying()) {
        close();
    }
}

std::chrono::milliseconds SoundDevice::timeToNextCheck() const {
    return closeWhenSilent_ ? std::chrono::milliseconds(50)
                            : std::chrono::milliseconds(std::chrono::hours(1));
}

void SoundDevice::close() {
    stop();
    closeWhenSilent_ = false;
    if (device_ != 0) {
        SDL_CloseAudioDevice(device_);
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        device_ = 0;
    }
}
