// What a player hears: the real program on a real sound server, whose mix of everything is recorded.
#include "e2e/cabinet_fixture.h"

#include "avi_writer.h"
#include "riff.h"
#include "sounds.h"
#include "support/heard.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

constexpr int serverRate = 48000;
constexpr int movieSize = 64; // both ways, all white

// What goes on for at least 80 milliseconds, in its order; from the first sound on.
std::string storyOf(const std::string& letters) {
    std::string story;
    for (std::size_t start = letters.find_first_not_of('.'); start < letters.size();) {
        const std::size_t end = std::min(letters.find_first_not_of(letters[start], start), letters.size());
        if (end - start >= 4 && (story.empty() || story.back() != letters[start]))
            story += letters[start];
        start = end;
    }
    return story;
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
        for (int waited = 0; waited < StepLimit; waited += 20) {
            if (std::filesystem::exists(path(name)))
                return true;
            pass(20);
        }
        return false;
    }

    static void pass(int milliseconds) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }

    static Samples tone(double pitch, double seconds, double volume) {
        Samples samples;
        for (int index = 0; index < static_cast<int>(seconds * SoundRate); ++index)
            samples.push_back(static_cast<std::int16_t>(
                32000 * volume * std::sin(2 * std::numbers::pi * pitch * index / SoundRate)));
        return samples;
    }

    void writeTone(const std::string& name, double pitch, double seconds, double volume) const {
        writeFile(name, waveFile(tone(pitch, seconds, volume)));
    }

    void writeMovie(const std::string& name, double pitch, int seconds) const {
        constexpr int PerSecond = 25;
        AviWriter writer({movieSize, movieSize, PerSecond, SoundRate});
        for (int number = 0; number < seconds * PerSecond; ++number) {
            writer.addPicture(std::vector<std::uint32_t>(movieSize * movieSize, 0xFFFFFF));
            writer.addSound(tone(pitch, 1.0 / PerSecond, 0.5));
        }
        writeFile(name, writer.content());
    }

    // What programs have open on the server for playing.
    std::string players() const {
        std::filesystem::remove(path("players.txt"));
        ChildProgram list(
            {.words = {"pactl", "list", "short", "sink-inputs"}, .outputPath = path("players.txt")});
        EXPECT_EQ(list.waitForExit(StepLimit), 0);
        return readFile("players.txt");
    }

    // The recorder misses what is played before it has found its place.
    void waitForAmbience() const { waitForTone("AAAAAAAAAA"); }
    void waitForTone(const std::string& letters) const {
        for (int waited = 0; waited < StepLimit && !recorded().ends_with(letters); waited += 100)
            pass(100);
    }

    std::string recorded() const {
        return heard(readFile("heard.raw"), serverRate, {{'S', 1000}, {'X', 2000}, {'A', 400}});
    }

    std::unique_ptr<ChildProgram> server;
    std::unique_ptr<ChildProgram> recorder;
};

TEST_F(SoundServerTest, EffectsSoundOverTheAmbienceWhichRestsDuringAGame) {
    makeList();
    std::filesystem::create_directory(path("sounds"));
    // Short, so that it is paused while the end of one round is still to be heard and the next has been read.
    writeTone("sounds/ambience.wav", 400, 0.4, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    writeTone("sounds/start.wav", 1000, 0.4, 0.8);
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "outorder"}}));
    startRecorder();
    startFrontEnd();
    waitForList();
    waitForAmbience();
    screen->tap("Up");
    pass(800);
    screen->tap("Down");
    pass(500);
    EXPECT_NE(players(), "");
    ASSERT_TRUE(startGame("Out of Order"));
    pass(1500);
    EXPECT_EQ(players(), "");
    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
    pass(8000); // three seconds of the failure, one of the return
    EXPECT_EQ(leave(), 0);
    pass(300);
    recorder->signal(SIGTERM);
    recorder->waitForExit(StepLimit);

    const std::string letters = recorded();
    EXPECT_EQ(storyOf(letters), "AXAXAS.A.") << letters;
    const auto silenceAfterStart = letters.find('A', letters.rfind('S')) - letters.rfind('S');
    EXPECT_GT(silenceAfterStart * sliceMilliseconds, 4000U) << "the message of the failure and the return";
}

// After a game its last picture stands still, until the next frame starts it anew.
TEST_F(SoundServerTest, AMovieIsHeardWithoutAGapAndRestsFromAGameOn) {
    makeList();
    std::filesystem::create_directory(path("attracts"));
    writeMovie("attracts/barnacle.avi", 400, 1);
    startRecorder();
    startFrontEnd();
    waitForList();
    waitForTone("AAAAAAAAAA");
    pass(4500);
    const std::string rounds = recorded();
    ASSERT_TRUE(startGame("Barnacle Brigade"));
    EXPECT_EQ(players(), "");
    screen->tap("Escape");
    ASSERT_TRUE(screen->waitForFocus(FrontEndTitle, StepLimit));
    pass(2000);
    EXPECT_EQ(players(), "");
    const Screenshot resting = screen->capture();
    EXPECT_GE(resting.countColour({0, 0, resting.width, resting.height}, 0xFFFFFF), movieSize * movieSize);
    screen->tap("Down");
    screen->tap("Up");
    waitForTone("AAAAAAAAAA");
    EXPECT_EQ(leave(), 0);

    EXPECT_EQ(rounds.find('.', rounds.find('A')), std::string::npos) << "between two rounds: " << rounds;
    EXPECT_EQ(storyOf(recorded()).substr(0, 3), "A.A") << recorded();
}

TEST_F(SoundServerTest, AServerThatStandsStillDoesNotHoldTheProgram) {
    makeList();
    std::filesystem::create_directory(path("sounds"));
    writeTone("sounds/ambience.wav", 400, 2, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    startRecorder();
    startFrontEnd();
    waitForList();
    waitForAmbience();
    screen->tap("Down");
    pass(200);
    server->signal(SIGSTOP);
    screen->tap("Up");
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(output(), "");
}

TEST_F(SoundServerTest, EffectsAndAmbienceComeBackWithTheServer) {
    makeList();
    std::filesystem::create_directory(path("sounds"));
    writeTone("sounds/ambience.wav", 400, 2, 0.1);
    writeTone("sounds/select.wav", 2000, 0.2, 0.8);
    writeFile("kestravox.ini", cabinetSettings({{"SelectedGame", "outorder"}}));
    startFrontEnd();
    waitForList();
    server->signal(SIGTERM);
    server->waitForExit(StepLimit);
    std::filesystem::remove(path("socket"));
    screen->tap("Up");
    pass(1000);
    startServer();
    startRecorder();
    waitForAmbience();
    pass(5500); // effects ask for a server every five seconds
    screen->tap("Down");
    pass(1000);
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(storyOf(recorded()).substr(0, 3), "AXA") << recorded();
}

} // namespace
