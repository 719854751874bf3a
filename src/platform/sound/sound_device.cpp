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
constexpr int channel = 0;

// Minimum time between attempts to open a device, because each attempt probes every kind of sound server.
constexpr auto retryInterval = 5s;

// A device whose server has exited still accepts samples but plays nothing; SDL then reports it as stopped.
// The mixer does not expose its device ID; SDL assigns IDs from 2 upwards.
bool deviceIsAlive() {
    constexpr SDL_AudioDeviceID firstDevice = 2;
    constexpr SDL_AudioDeviceID lastDevice = 16;
    for (SDL_AudioDeviceID id = firstDevice; id <= lastDevice; ++id) {
        if (SDL_GetAudioDeviceStatus(id) != SDL_AUDIO_STOPPED) {
            return true;
        }
    }
    return false;
}

} // namespace

SoundDevice::~SoundDevice() {
    close();
    SDL_TLSCleanup();
}

bool SoundDevice::open() {
    if (opened_ && deviceIsAlive()) {
        return true;
    }
    close();
    const auto now = std::chrono::steady_clock::now();
    if (now < nextTry_) {
        return false;
    }
    silenceAlsa();
    if (Mix_OpenAudioDevice(wantedFrequency, AUDIO_S16SYS, wantedChannels, bufferFrames, nullptr,
                            SDL_AUDIO_ALLOW_FREQUENCY_CHANGE) != 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        nextTry_ = now + retryInterval;
        return false;
    }
    opened_ = true;
    Uint16 format = 0;
    Mix_QuerySpec(&frequency_, &format, &channels_);
    return true;
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
    samples_ = loadWaveSound(path, frequency_, channels_);
    chunk_.reset(samples_.empty() ? nullptr
                                  : Mix_QuickLoad_RAW(samples_.data(), static_cast<Uint32>(samples_.size())));
    if (!chunk_ || Mix_PlayChannel(channel, chunk_.get(), 0) != channel) {
        return 0;
    }
    return length();
}

void SoundDevice::stop() {
    if (opened_) {
        Mix_HaltChannel(channel);
        chunk_.reset();
        samples_ = {};
    }
}

void SoundDevice::closeWhenSilent() {
    closeWhenSilent_ = opened_;
    check();
}

void SoundDevice::check() {
    if (closeWhenSilent_ && (Mix_Playing(channel) == 0 || !deviceIsAlive())) {
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
    if (opened_) {
        Mix_CloseAudio();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        opened_ = false;
    }
}
