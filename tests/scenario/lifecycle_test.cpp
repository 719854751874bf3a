// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "platform/drawing_objects.h"
#include "platform/test_access.h"
#include "support/front_end.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace {

std::string standardErrorOf(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

using Pixels = std::vector<std::uint32_t>;

Pixels copyOfScreen() {
    const ScreenPixels screen = screenPixels();
    return {screen.pixels, screen.pixels + screen.stride * screen.height};
}

// Returns the frames that SDL has saved, in order.
std::vector<Pixels> savedPictures() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        if (entry.path().extension() == ".bmp") {
            names.insert(entry.path().filename());
        }
    }
    std::vector<Pixels> pictures;
    for (const std::string& name : names) {
        SDL_Surface* file = SDL_LoadBMP(name.c_str());
        SDL_Surface* picture = SDL_ConvertSurfaceFormat(file, SDL_PIXELFORMAT_RGB888, 0);
        const auto* pixels = static_cast<const std::uint32_t*>(picture->pixels);
        pictures.emplace_back(pixels, pixels + picture->w * picture->h);
        SDL_FreeSurface(file);
        SDL_FreeSurface(picture);
    }
    return pictures;
}

// Whether the picture contains the message box with this text. Shows the message briefly to compare.
bool showsMessage(const Pixels& picture, const char* text) {
    const Pixels without = copyOfScreen();
    showMessage(text);
    const Pixels with = copyOfScreen();
    hideMessage();
    keepScreenAlive();
    for (std::size_t pixel = 0; pixel < with.size(); ++pixel) {
        if (with[pixel] != without[pixel] && with[pixel] != picture[pixel]) {
            return false;
        }
    }
    return with != without;
}

TEST(Lifecycle, TheFirstStartShowsItsMessagesInOrder) {
    FrontEnd frontEnd;
    frontEnd.set("Settings", "Mame.exe",
                 frontEnd.folder().write("emulator", "#!/bin/sh\necho '<mame><machine name=\"alpha\">"
                                                     "<description>Alpha</description></machine></mame>'\n"));
    frontEnd.folder().write("xml2info", "#!/bin/sh\nprintf 'game (\\nname alpha\\n)\\n'\n");
    for (const char* program : {"emulator", "xml2info"}) {
        std::filesystem::permissions(program, std::filesystem::perms::all);
    }
    setenv("SDL_VIDEO_DUMMY_SAVE_FRAMES", "1", 1);
    frontEnd.at(90, [] {
        unsetenv("SDL_VIDEO_DUMMY_SAVE_FRAMES");
        std::vector<std::string> shown;
        for (const Pixels& picture : savedPictures()) {
            for (const char* text : {"Loading Game Information...", "Regenerating game information (1/2)...",
                                     "Regenerating game information (2/2)...", "Filtering And Sorting..."}) {
                if (showsMessage(picture, text) && (shown.empty() || shown.back() != text)) {
                    shown.emplace_back(text);
                }
            }
        }
        EXPECT_EQ(shown, (std::vector<std::string>{
                             "Loading Game Information...", "Regenerating game information (1/2)...",
                             "Regenerating game information (2/2)...", "Filtering And Sorting..."}));
    });
    EXPECT_EQ(frontEnd.run(150), 0);
}

TEST(Lifecycle, StartsOnTheSavedGameAndSavesTheSelection) {
    FrontEnd frontEnd;
    frontEnd.writeGames(50);
    frontEnd.set("System", "SelectedGame", "g030");
    frontEnd.at(90, [] {
        EXPECT_EQ(FrontEnd::selectedName(), "g030");
        EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE) << "the mouse cursor is hidden";
    });
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    EXPECT_EQ(frontEnd.run(250), 0);
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
    EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g031");
    EXPECT_EQ(frontEnd.get("Settings", "Roms.dir"), "roms") << "other keys are kept";
    EXPECT_EQ(frontEnd.get("Settings", "StatusBarFontFace"), "Arial");
}

TEST(Lifecycle, EndsCleanlyOnSignalsAndWindowClose) {
    for (const auto request :
         {+[] { std::raise(SIGTERM); }, +[] { pushWindowEvent(SDL_WINDOWEVENT_CLOSE); }}) {
        FrontEnd frontEnd;
        frontEnd.writeGames(5);
        frontEnd.tap(150, SDL_SCANCODE_DOWN);
        frontEnd.at(350, request);
        EXPECT_EQ(frontEnd.runToEnd(), 0);
        EXPECT_EQ(frontEnd.get("System", "SelectedGame"), "g001");
    }
}

TEST(Lifecycle, ReportsWhyItCannotStartAndKeepsTheSettings) {
    const struct {
        const char* list;
        const char* message;
    } rows[] = {{"", "Error: No games found!\nError: Initialization failed\n"},
                {"\n \n\t\n", "Error: No games found!\nError: Initialization failed\n"}};
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        frontEnd.folder().write("listinfo.dat", row.list);
        const auto before = std::filesystem::last_write_time("kestravox.ini");
        int exitCode = 0;
        EXPECT_EQ(standardErrorOf([&] { exitCode = frontEnd.runToEnd(); }), row.message);
        EXPECT_EQ(exitCode, 1);
        EXPECT_EQ(std::filesystem::last_write_time("kestravox.ini"), before);
    }
}

TEST(Lifecycle, ExecutesEveryTickDelayedByAStall) {
    FrontEnd frontEnd;
    frontEnd.writeGames(500);
    frontEnd.at(150, [] { pressKey(SDL_SCANCODE_DOWN); });
    frontEnd.at(155, [] { virtualClockAdvance(6000); });
    frontEnd.at(6250, [] {
        EXPECT_EQ(selectedIndex, 61) << "sixty delayed ticks at once, and the one that is due";
        releaseKey(SDL_SCANCODE_DOWN);
    });
    frontEnd.run(6350);
}

TEST(Lifecycle, SurvivesUnusableSettingsFiles) {
    const struct {
        const char* name;
        std::string text;
    } files[] = {
        {"binary", std::string("\x00\x01\xFF[Settings\n=\n[]\n\x1A\xEF\xBB", 20)},
        {"long values", "[Settings]\nFontface=" + std::string(10000, 'A') +
                            "\nRoms.dir=" + std::string(10000, 'r') + "\nFontsize=99999999999999999999\n"},
        {"extreme numbers", "[Settings]\nFontsize=-5\nStatusBarFontSize=0\nPreviewModeSpacer=-99999\n"
                            "[RomOptions]\nMaxButtons=65535\n"}};
    for (const auto& file : files) {
        FrontEnd frontEnd;
        frontEnd.writeGames(30);
        frontEnd.folder().write("kestravox.ini", file.text);
        frontEnd.tap(150, SDL_SCANCODE_DOWN);
        frontEnd.tap(350, SDL_SCANCODE_RIGHT);
        EXPECT_EQ(frontEnd.run(550), 0) << file.name;
    }
    FrontEnd frontEnd;
    frontEnd.writeGames(3);
    std::filesystem::remove("kestravox.ini");
    std::filesystem::create_directory("kestravox.ini");
    EXPECT_EQ(frontEnd.run(150), 0) << "a folder with the name of the file";
    EXPECT_TRUE(std::filesystem::is_directory("kestravox.ini"));
}

TEST(Lifecycle, CentresA4To3FrameOnAWideScreen) {
    const struct {
        int width;
        int height;
        int frame; // width
        int offset;
    } rows[] = {{1920, 1080, 1440, 240}, {1920, 1000, 1332, 294}, {1921, 1001, 1332, 294},
                {1280, 1024, 1280, 0},   {640, 480, 640, 0},      {641, 480, 640, 0},
                {643, 480, 640, 1}};
    for (const auto& row : rows) {
        FrontEnd frontEnd;
        setScreenSize(row.width, row.height);
        frontEnd.writeGames(5);
        frontEnd.set("Settings", "Backgroundcolor", "0x00FF00");
        frontEnd.at(90, [&] {
            BITMAP frame{};
            GetObjectA(backBitmap, sizeof(frame), &frame);
            EXPECT_EQ(frame.bmWidth, row.frame);
            EXPECT_EQ(frame.bmHeight, row.height);
            int first = -1;
            int count = 0;
            for (int x = 0; x < row.width; ++x) {
                const bool inFrame = FrontEnd::pixel(x, 1) == 0x00FF00;
                first = inFrame && first < 0 ? x : first;
                count += inFrame ? 1 : 0;
                EXPECT_TRUE(inFrame || FrontEnd::pixel(x, 1) == 0) << "the area beside the frame is black";
            }
            EXPECT_EQ(first, row.offset);
            EXPECT_EQ(count, row.frame);
        });
        EXPECT_EQ(frontEnd.run(150), 0);
    }
}

TEST(Lifecycle, DrawsOnScreensOfEverySize) {
    const int sizes[][2] = {{1, 1}, {2, 480}, {64, 48}, {320, 240}, {1000, 1000}, {1080, 1920}, {3840, 2160}};
    for (const auto& size : sizes) {
        for (const char* orientation : {"Normal", "ROR", "ROL", "Inverted"}) {
            FrontEnd frontEnd;
            setScreenSize(size[0], size[1]);
            frontEnd.writeGames(40);
            frontEnd.set("Settings", "Orientation", orientation);
            frontEnd.set("Settings", "Fontsize", "36");
            for (int step = 0; step < 8; ++step) {
                frontEnd.tap(150 + 100 * step, step % 3 == 2 ? SDL_SCANCODE_RIGHT : SDL_SCANCODE_DOWN);
            }
            EXPECT_EQ(frontEnd.run(1050), 0) << size[0] << "x" << size[1] << orientation;
        }
    }
}

} // namespace
