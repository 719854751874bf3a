// SPDX-License-Identifier: GPL-3.0-or-later
// Sound output of the real program on a real sound server whose mixed output is recorded.
#include "e2e/cabinet_fixture.h"

#include "avi_writer.h"
#include "riff.h"
#include "sounds.h"
#include "support/tone_detection.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

constexpr int serverRate = 48000; // Hz
constexpr int movieSize = 64;     // width and height in pixels; all white

// Returns the sequence of tones and silences of at least 80 milliseconds, starting with the first sound.
std::string toneSequence(const std::string& letters) {
    std::string sequence;
    for (std::size_t start = letters.find_first_not_of('.'); start < letters.size();) {
        const std::size_t end = std::min(letters.find_first_not_of(letters[start], start), letters.size());
        if (end - start >= 4 && (sequence.empty() || sequence.back() != letters[start])) {
            sequence += letters[start];
        }
        start = end;
    }
    return sequence;
}

class SoundServerTest : public CabinetTest {
protected:
    void SetUp() override {
        CabinetTest::SetUp();
        setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        setenv("HOME", folder.c_str(), 1);
        setenv("PULSE_SERVER", ("unix:" + path("socket")).c_str(), 1);
        startServer();
    }

    void startServer() {
        const std::string protocol = "module-native-protocol-unix auth-anonymous=1 socket=" + path("socket");
        const std::string sink = "module-null-sink sink_name=out format=s16le channels=2 rate=48000";
        server = std::make_unique<ChildProgram>(
            ChildOptions{.words = {"pulseaudio", "-n", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
                                   protocol, "-L", sink},
                         .outputPath = path("server.txt")});
        ASSERT_TRUE(waitForFile("socket"));
    }

    void startRecorder() {
        recorder = std::make_unique<ChildProgram>(
            ChildOptions{.words = {"parec", "-d", "out.monitor", "--raw", "--rate=48000", "--format=s16le",
                                   "--channels=2", "--latency-msec=20", path("heard.raw")},
                         .outputPath = path("recorder.txt")});
        ASSERT_TRUE(waitForFile("heard.raw"));
    }

    bool waitForFile(const std::string& name) const {
        for (int waited = 0; waited < stepTimeout; waited += 20) {
            if (std::filesystem::exists(path(name))) {
                return true;
            }
            waitFor(20);
        }
        return false;
    }

    static void waitFor(int milliseconds) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }

    static Samples tone(double pitch, double seconds, double volume) {
        Samples samples;
        for (int index = 0; index < static_cast<int>(seconds * soundRate); ++index) {
            samples.push_back(static_cast<std::int16_t>(
                32000 * volume * std::sin(2 * std::numbers::pi * pitch * index / soundRate)));
        }
        return samples;
    }

    void writeTone(const std::string& name, double pitch, double seconds, double volume) const {
        writeFile(name, waveFile(tone(pitch, seconds, volume)));
    }

    void writeMovie(const std::string& name, double pitch, int seconds) const {
        constexpr int framesPerSecond = 25;
        AviWriter writer({movieSize, movieSize, framesPerSecond, soundRate});
        for (int number = 0; number < seconds * framesPerSecond; ++number) {
            writer.addPicture(std::vector<std::uint32_t>(movieSize * movieSize, 0xFFFFFF));
            writer.addSound(tone(pitch, 1.0 / framesPerSecond, 0.5));
        }
        writeFile(name, writer.content());
    }

    // Returns the playback streams that are open on the server.
    std::string players() const {
        std::filesystem::remove(path("players.txt"));
        ChildProgram list(
            {.words = {"pactl", "list", "short", "sink-inputs"}, .outputPath = path("players.txt")});
        EXPECT_EQ(list.waitForExit(stepTimeout), 0);
        return readFile("players.txt");
    }

    // Waits until the recorder is running; it misses the first sounds.
    void waitForAmbience() const { waitForTone("AAAAAAAAAA"); }
    void waitForTone(const std::string& letters) const {
        for (int waited = 0; waited < stepTimeout && !recorded().ends_with(letters); waited += 100) {
            waitFor(100);
        }
    }

    std::string recorded() const {
        return detectTones(readFile("heard.raw"), serverRate, {{'S', 1000}, {'X', 2000}, {'A', 400}});
    }

    std::unique_ptr<ChildProgram> server;
    std::unique_ptr<ChildProgram> recorder;
};

TEST_F(SoundServerTest, EffectsPlayOverTheAmbienceWhichPausesDuringAGame) {
    generateList();
    std::filesystem::create_directory(path("sounds"));
    // Short, so that the pause occurs while the end of one loop is still playing and the next has already
    // been read.
    writeTone("sounds/ambience.wav", 400, 0.4, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    writeTone("sounds/start.wav", 1000, 0.4, 0.8);
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "outorder"}}));
    startRecorder();
    startFrontEnd();
    waitForGameList();
    waitForAmbience();
    screen->tap("Up");
    waitFor(800);
    screen->tap("Down");
    waitFor(500);
    EXPECT_NE(players(), "");
    ASSERT_TRUE(startGame("Out of Order"));
    waitFor(1500);
    EXPECT_EQ(players(), "");
    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
    waitFor(8000); // three seconds of the failure message, one after the game
    EXPECT_EQ(exitByKey(), 0);
    waitFor(300);
    recorder->signal(SIGTERM);
    recorder->waitForExit(stepTimeout);

    const std::string letters = recorded();
    EXPECT_EQ(toneSequence(letters), "AXAXAS.A.") << letters;
    const auto silenceAfterStart = letters.find('A', letters.rfind('S')) - letters.rfind('S');
    EXPECT_GT(silenceAfterStart * sliceMilliseconds, 4000U)
        << "silent during the failure message and the pause after the game";
}

// After a game the movie stays paused until the next frame restarts it.
TEST_F(SoundServerTest, AMovieLoopsWithoutAGapAndStaysPausedAfterAGame) {
    generateList();
    std::filesystem::create_directory(path("attracts"));
    writeMovie("attracts/barnacle.avi", 400, 1);
    startRecorder();
    startFrontEnd();
    waitForGameList();
    waitForTone("AAAAAAAAAA");
    waitFor(4500);
    const std::string loops = recorded();
    ASSERT_TRUE(startGame("Barnacle Brigade"));
    EXPECT_EQ(players(), "");
    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(frontEndTitle, stepTimeout));
    waitFor(2000);
    EXPECT_EQ(players(), "");
    const Screenshot paused = screen->capture();
    EXPECT_GE(paused.countColour({0, 0, paused.width, paused.height}, 0xFFFFFF), movieSize * movieSize);
    screen->tap("Down");
    screen->tap("Up");
    waitForTone("AAAAAAAAAA");
    EXPECT_EQ(exitByKey(), 0);

    EXPECT_EQ(loops.find('.', loops.find('A')), std::string::npos) << "silence between two loops: " << loops;
    EXPECT_EQ(toneSequence(recorded()).substr(0, 3), "A.A") << recorded();
}

TEST_F(SoundServerTest, ASuspendedServerDoesNotBlockTheProgram) {
    generateList();
    std::filesystem::create_directory(path("sounds"));
    writeTone("sounds/ambience.wav", 400, 2, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    startRecorder();
    startFrontEnd();
    waitForGameList();
    waitForAmbience();
    screen->tap("Down");
    waitFor(200);
    server->signal(SIGSTOP);
    screen->tap("Up");
    EXPECT_EQ(exitByKey(), 0);
    EXPECT_EQ(output(), "");
}

TEST_F(SoundServerTest, EffectsAndAmbienceResumeWhenTheServerRestarts) {
    generateList();
    std::filesystem::create_directory(path("sounds"));
    writeTone("sounds/ambience.wav", 400, 2, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "outorder"}}));
    startFrontEnd();
    waitForGameList();
    server->signal(SIGTERM);
    server->waitForExit(stepTimeout);
    std::filesystem::remove(path("socket"));
    screen->tap("Up");
    waitFor(1000);
    startServer();
    startRecorder();
    waitForAmbience();
    waitFor(5500); // effects try to reconnect every five seconds
    screen->tap("Down");
    waitFor(1000);
    EXPECT_EQ(exitByKey(), 0);
    EXPECT_EQ(toneSequence(recorded()).substr(0, 3), "AXA") << recorded();
}

} // namespace
