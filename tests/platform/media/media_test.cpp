// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media.h"

#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "riff.h"
#include "support/movie_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

constexpr int movieX = 100;
constexpr int movieY = 60;

class MediaTest : public ::testing::Test {
protected:
    void SetUp() override { parent = openFrame(); }

    HWND open(const std::string& file) const { return MCIWndCreateA(parent, nullptr, 0, file.c_str()); }

    // Opens a file, places it at its natural size and plays it. `answer` receives the result of "play
    // repeat".
    HWND play(const std::string& file, LRESULT* answer = nullptr) const {
        const HWND movie = open(file);
        const RECT size = sizeOf(movie);
        SetWindowPos(movie, nullptr, movieX, movieY, size.right, size.bottom, 0);
        SendMessageA(movie, MCI_PLAY, 0, 0);
        const LRESULT result =
            SendMessageA(movie, MCIWNDM_SENDSTRINGA, 0, reinterpret_cast<LPARAM>("play repeat"));
        if (answer) {
            *answer = result;
        }
        return movie;
    }

    // Repeats the query, because a busy machine reports a guessed size at first.
    static RECT sizeOf(HWND movie) {
        RECT size{};
        keepAliveUntil([&] {
            SendMessageA(movie, MCIWNDM_GET_DEST, 0, reinterpret_cast<LPARAM>(&size));
            return size.right < 20000;
        });
        return size;
    }

    // One picture, and a second of sound.
    static std::string whiteMovie(SIZE size, bool sound) {
        AviWriter writer({size.cx, size.cy, 10, sound ? soundRate : 0});
        writer.addPicture(std::vector<std::uint32_t>(static_cast<std::size_t>(size.cx * size.cy), 0xFFFFFF));
        if (sound) {
            writer.addSound(::play({{0, 1, 440, 0, 0.8, 0}}, 1));
        }
        return writer.content();
    }

    // An uncompressed movie.
    static std::string plainMovie(SIZE size) {
        std::string content = AviWriter({size.cx, size.cy, 10, 0}).content();
        content.replace(content.find("MJPG"), 4, "DIB ");
        content.replace(content.find("MJPG"), 4, 4, '\0');
        content.erase(content.find("LIST", content.find("strf")));
        const std::string pixels(static_cast<std::size_t>(3 * size.cx * size.cy), '\x7F');
        return content + riffList("movi", riffChunk("00db", pixels) + riffChunk("00db", pixels));
    }

    static int shown() { return pictureNumberAt(movieX, movieY); }

    TemporaryFolder folder;
    HWND parent = nullptr;
};

TEST_F(MediaTest, RepeatsAMovieWithoutAnEmptyPicture) {
    constexpr int pictures = 20;
    play(folder.write("a.avi", numberedMovie(pictures, 25, 440)));
    ASSERT_TRUE(keepAliveUntil([] { return shown() >= 0; }));
    int last = shown();
    int rounds = 0;
    int gaps = 0;
    ASSERT_TRUE(keepAliveUntil([&] {
        const int now = shown();
        EXPECT_GE(now, 0) << "the picture disappeared";
        if (now < last) {
            EXPECT_LE(now, 3) << "restarted after " << last;
            EXPECT_GE(last, pictures - 4);
            ++rounds;
        } else {
            gaps += now > last + 3 ? 1 : 0;
        }
        last = now;
        return rounds == 3 || HasFailure();
    }));
    EXPECT_EQ(gaps, 0);
}

TEST_F(MediaTest, PausesAndResumesAtTheSamePosition) {
    const HWND movie = play(folder.write("a.avi", numberedMovie(60, 15, 440)));
    ASSERT_TRUE(keepAliveUntil([] { return shown() >= 5; }));
    SendMessageA(movie, MCI_PAUSE, 0, 0);
    keepAliveUntil([] { return false; }, 200);
    const int paused = shown();
    keepAliveUntil([] { return false; }, 600);
    EXPECT_EQ(shown(), paused);
    SendMessageA(movie, MCI_RESUME, 0, 0);
    ASSERT_TRUE(keepAliveUntil([&] { return shown() != paused; }));
    EXPECT_GT(shown(), paused);
    EXPECT_LE(shown(), paused + 4);
}

TEST_F(MediaTest, AFilePausedBeforeItIsOpenStaysHidden) {
    const std::string file = folder.write("a.avi", numberedMovie(4, 10));
    const HWND movie = open(file);
    SetWindowPos(movie, nullptr, movieX, movieY, numberedWidth, numberedHeight, 0);
    SendMessageA(movie, MCI_PLAY, 0, 0);
    SendMessageA(movie, MCI_PAUSE, 0, 0);
    mediaPrepare();
    EXPECT_FALSE(keepAliveUntil([] { return shown() >= 0; }, 500));
    SendMessageA(movie, MCI_RESUME, 0, 0);
    EXPECT_TRUE(keepAliveUntil([] { return shown() >= 0; }));
}

TEST_F(MediaTest, IsAboveItsParentBelowPopupsAndDestroyedWithTheParent) {
    const HWND popup = CreateWindowExA(0, "Frame", nullptr, WS_POPUP, movieX, movieY, 16, 480, parent,
                                       nullptr, nullptr, nullptr);
    ShowWindow(popup, SW_SHOW);
    UpdateWindow(popup);
    const HWND movie = play(folder.write("a.avi", numberedMovie(4, 10)));
    keepAliveUntil([] { return shown() >= 0; }, 500);
    EXPECT_EQ(shown(), -1) << "the popup covers the first column";
    DestroyWindow(popup);
    EXPECT_TRUE(keepAliveUntil([] { return shown() >= 0; }));
    SendMessageA(movie, WM_CLOSE, 0, 0);
    keepScreenAlive();
    EXPECT_EQ(shown(), -1);
    const HWND other = play(folder.pathOf("a.avi"));
    EXPECT_TRUE(keepAliveUntil([] { return shown() >= 0; }));
    DestroyWindow(parent);
    RECT rect{};
    EXPECT_FALSE(GetClientRect(other, &rect));
}

TEST_F(MediaTest, RejectsUnplayableFilesWithoutBlocking) {
    folder.write("good.avi", numberedMovie(2, 10));
    std::filesystem::create_directory("folder.avi");
    mkfifo("fifo.avi", 0600);
    folder.write("empty.avi", "");
    folder.write("noise.avi", std::string(5000, '\x5A'));
    folder.write("playlist.avi", "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\ngood.avi\n#EXT-X-ENDLIST\n");
    folder.write("concat.avi", "ffconcat version 1.0\nfile good.avi\n");
    folder.write("huge.avi", whiteMovie({4000, 3000}, false));
    folder.write("large.avi", whiteMovie({2000, 1500}, false));
    folder.write("deep.avi", plainMovie({1900, 1200})); // fewer pixels, but 24 bits each
    folder.write("loud.avi", whiteMovie({2000, 1500}, true));
    std::string pictureless = numberedMovie(4, 10); // its JPEG markers are overwritten
    std::replace(pictureless.begin() + static_cast<std::ptrdiff_t>(pictureless.find("movi")),
                 pictureless.end(), '\xFF', '\x5A');
    folder.write("pictureless.avi", pictureless);
    for (const char* name :
         {"huge.avi", "large.avi", "deep.avi", "loud.avi", "pictureless.avi", "absent.avi", "folder.avi",
          "fifo.avi", "empty.avi", "noise.avi", "playlist.avi", "concat.avi", "/dev/zero", "good.avi/"}) {
        const auto start = std::chrono::steady_clock::now();
        LRESULT answer = 0;
        const HWND movie = play(name, &answer);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << name;
        EXPECT_NE(answer, 0) << name;
        EXPECT_NE(movie, nullptr) << name;
        SendMessageA(movie, WM_CLOSE, 0, 0);
    }
}

TEST_F(MediaTest, ReportsSizesFromOnePixelToTwoThousand) {
    for (const SIZE size : {SIZE{1, 1}, SIZE{63, 17}, SIZE{1920, 1080}}) {
        const HWND movie = play(folder.write("a.avi", whiteMovie(size, false)));
        const RECT found = sizeOf(movie);
        EXPECT_EQ(found.right, size.cx);
        EXPECT_EQ(found.bottom, size.cy);
        SetWindowPos(movie, nullptr, 0, 0, 64, 64, 0);
        const auto middle = [] { return screenPixels().pixels[32 * screenPixels().stride + 32] & 0xFF; };
        EXPECT_TRUE(keepAliveUntil([&] { return middle() > 0xF0; })) << size.cx;
        SendMessageA(movie, WM_CLOSE, 0, 0);
        keepScreenAlive();
        EXPECT_EQ(middle(), 0U);
    }
}

TEST_F(MediaTest, TurnsAMovieAndFitsItIntoItsPlace) {
    const std::string file = folder.write("a.avi", numberedMovie(1, 10));
    // The place is 200 by 400 pixels at (50, 20); the white column of the movie is on the left of it,
    // upright.
    const struct {
        const char* command;
        RECT window;
        POINT white;
        POINT gray; // the other end of the movie
    } rows[] = {
        {"setvideo rotation to 0", {50, 190, 250, 250}, {55, 220}, {240, 220}},
        {"setvideo rotation to 90", {90, 20, 210, 420}, {150, 30}, {150, 410}},
        {"setvideo rotation to -90", {90, 20, 210, 420}, {150, 410}, {150, 30}},
        {"setvideo rotation to 180", {50, 190, 250, 250}, {245, 220}, {60, 220}},
    };
    for (const bool waits : {true, false}) { // for the size, before the window is placed
        for (const auto& row : rows) {
            const HWND movie = open(file);
            const auto send = [&](const char* command) {
                return SendMessageA(movie, MCIWNDM_SENDSTRINGA, 0, reinterpret_cast<LPARAM>(command));
            };
            EXPECT_NE(send("setvideo rotation to 45"), 0);
            EXPECT_EQ(send(row.command), 0);
            if (waits) {
                sizeOf(movie);
            }
            SetWindowPos(movie, nullptr, 50, 20, 200, 400, 0);
            EXPECT_EQ(send("play repeat"), 0);
            const auto levelAt = [](POINT point) {
                const ScreenPixels screen = screenPixels();
                return screen.pixels[point.y * screen.stride + point.x] & 0xFF;
            };
            EXPECT_TRUE(keepAliveUntil([&] { return levelAt(row.white) > 0xD0; })) << row.command;
            EXPECT_NEAR(levelAt(row.gray), 0x80, 0x10) << row.command;
            RECT window{};
            GetWindowRect(movie, &window);
            EXPECT_EQ(window.left, row.window.left) << row.command;
            EXPECT_EQ(window.top, row.window.top) << row.command;
            EXPECT_EQ(window.right, row.window.right) << row.command;
            EXPECT_EQ(window.bottom, row.window.bottom) << row.command;
            SendMessageA(movie, WM_CLOSE, 0, 0);
            keepScreenAlive();
        }
    }
}

TEST_F(MediaTest, RepeatedOpeningLeaksNoFilesOrThreads) {
    const std::string file = folder.write("a.avi", numberedMovie(4, 10, 440));
    const auto count = [](const char* path) {
        return std::distance(std::filesystem::directory_iterator(path),
                             std::filesystem::directory_iterator());
    };
    const auto openAndClose = [&](int times) {
        for (int index = 0; index < times; ++index) {
            SendMessageA(play(file), WM_CLOSE, 0, 0);
        }
        keepAliveUntil([] { return false; }, 300);
    };
    openAndClose(5);
    const auto files = count("/proc/self/fd");
    const auto threads = count("/proc/self/task");
    openAndClose(60);
    EXPECT_LE(count("/proc/self/fd"), files);
    EXPECT_LE(count("/proc/self/task"), threads);
}

} // namespace
