// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound.h"

#include "platform/base/end_request.h"
#include "platform/virtual_clock.h"
#include "sounds.h"
#include "support/temporary_folder.h"
#include "support/tone_detection.h"
#include "support/wave_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sys/stat.h>
#include <thread>

namespace {

constexpr int deviceRate = 48000;

void sleepFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// SDL's disk driver writes the samples to a file at the speed of a real device.
class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", folder.pathOf("heard.raw").c_str(), 1);
    }

    // Plays a sound synchronously and returns how long that takes, in milliseconds of virtual time.
    static std::int64_t lengthOf(const std::string& file, BOOL expected) {
        const std::int64_t start = virtualClockMilliseconds();
        EXPECT_EQ(PlaySoundA(file.c_str(), nullptr, SND_SYNC | SND_FILENAME | SND_NODEFAULT), expected)
            << file;
        return virtualClockMilliseconds() - start;
    }

    std::string tone(const char* name, double pitch, double seconds) const {
        return folder.write(name, waveFile(play({{0, seconds, pitch, 0, 0.9, 0}}, seconds)));
    }

    std::string recorded() const {
        return detectTones(folder.read("heard.raw"), deviceRate, {{'A', 400}, {'B', 1000}});
    }

    TemporaryFolder folder;
};

TEST_F(SoundTest, PlaysEveryCodingForItsLength) {
    constexpr Coding codings[] = {
        {"8.wav", 1, 1, 11025, 8},      {"16.wav", 1, 2, 44100, 16},     {"24.wav", 1, 2, 48000, 24},
        {"float.wav", 3, 1, 22050, 32}, {"ima.wav", 17, 1, 22050, 4},    {"ms.wav", 2, 2, 22050, 4},
        {"a.wav", 6, 1, 8000, 8},       {"mu.wav", 7, 2, 8000, 8},       {"six.wav", 1, 6, 48000, 24, true},
        {"slow.wav", 1, 1, 4000, 8},    {"wrong.mp3", 1, 8, 192000, 16},
    };
    for (const Coding& coding : codings) {
        EXPECT_NEAR(lengthOf(folder.write(coding.name, wave(coding)), TRUE), 235, 40) << coding.name;
    }
    std::string oversized = wave(codings[1]);
    oversized.replace(40, 4, "\xFF\xFF\xFF\x7F");
    EXPECT_NEAR(lengthOf(folder.write("oversized.wav", oversized), TRUE), 235, 40);
}

TEST_F(SoundTest, ReturnsAtOnceForWhatCannotBePlayed) {
    std::filesystem::create_directory("folder.wav");
    mkfifo("fifo.wav", 0600);
    folder.write("empty.wav", "");
    folder.write("noise.wav", std::string(3000, '\x5A'));
    folder.write("head.wav", wave({"", 1, 1, 11025, 8}).substr(0, 30));
    folder.write("nothing.wav", waveFile({}));
    folder.write("absurd.wav", wave({"", 1, 1, 10, 8}) + std::string(200'000, '\x80'));
    std::string endless = wave({"", 1, 1, 8000, 8}); // 375 seconds
    endless.replace(40, 4, std::string("\xC0\xC6\x2D\x00", 4));
    std::filesystem::resize_file(folder.write("endless.wav", endless), 44 + 3'000'000);
    folder.write("music.wav", "OggS" + std::string(3000, '\0'));
    for (const char* file : {"absent.wav", "folder.wav", "fifo.wav", "empty.wav", "noise.wav", "head.wav",
                             "nothing.wav", "absurd.wav", "endless.wav", "music.wav", "/dev/zero"}) {
        EXPECT_EQ(lengthOf(file, FALSE), 0) << file;
    }
}

TEST_F(SoundTest, ANewSoundStopsTheCurrentOne) {
    const std::string low = tone("low.wav", 400, 2);
    const std::string high = tone("high.wav", 1000, 0.2);
    PlaySoundA(low.c_str(), nullptr, SND_ASYNC);
    sleepFor(400);
    PlaySoundA(high.c_str(), nullptr, SND_ASYNC);
    sleepFor(500);
    PlaySoundA(low.c_str(), nullptr, SND_ASYNC);
    sleepFor(300);
    std::filesystem::remove(low); // a sound that plays does not need its file
    sleepFor(100);
    PlaySoundA(nullptr, nullptr, 0);
    sleepFor(300);
    const std::string letters = recorded();
    std::string heard = withoutRepeats(letters);
    std::erase(heard, '?'); // a slice may contain the end of one sound and the start of the next
    EXPECT_EQ(heard.substr(0, 1) == "." ? heard.substr(1) : heard, "AB.A.") << letters;
    EXPECT_LT(std::count(letters.begin(), letters.end(), 'A'), 1000 / sliceMilliseconds);
    EXPECT_NEAR(std::count(letters.begin(), letters.end(), 'B') * sliceMilliseconds, 200, 60) << letters;
}

TEST_F(SoundTest, ReleasesTheDeviceAndReopensIt) {
    const auto recordingGrows = [&] {
        const auto before = std::filesystem::file_size("heard.raw");
        sleepFor(150);
        return std::filesystem::file_size("heard.raw") > before;
    };
    const std::string sound = tone("low.wav", 400, 0.4);
    PlaySoundA(sound.c_str(), nullptr, SND_ASYNC);
    while (!std::filesystem::exists("heard.raw")) {
        sleepFor(5);
    }
    EXPECT_TRUE(recordingGrows());
    soundGiveUp();
    // The device is closed after the sound; its thread may be late on a busy machine.
    for (int wait = 0; wait < 20 && recordingGrows(); ++wait) {
    }
    const std::string letters = recorded();
    EXPECT_NEAR(std::count(letters.begin(), letters.end(), 'A') * sliceMilliseconds, 400, 70)
        << "the sound must play to its end: " << letters;
    EXPECT_FALSE(recordingGrows());
    PlaySoundA(sound.c_str(), nullptr, SND_ASYNC);
    sleepFor(150);
    EXPECT_TRUE(recordingGrows());
}

TEST_F(SoundTest, ARequestToEndTheProgramEndsASynchronousSound) {
    const std::string sound = tone("long.wav", 400, 10);
    virtualClockAt(virtualClockMilliseconds() + 2000, [] { requestEnd(EndRequest::close); });
    EXPECT_NEAR(static_cast<double>(lengthOf(sound, TRUE)), 2000, 100);
    EXPECT_EQ(lengthOf(sound, FALSE), 0) << "no other sound is waited for";
}

TEST_F(SoundTest, ReturnsAtOnceWithoutASoundDevice) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(lengthOf(tone("low.wav", 400, 2), FALSE), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
