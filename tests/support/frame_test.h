// SPDX-License-Identifier: GPL-3.0-or-later
// Fixture for the tests of the views: a frame buffer with its page of tiles, a temporary folder, and invented
// games named g0, g1 and so on.
#pragma once

#include "app/window_state.h"
#include "catalogue/visible_games.h"
#include "config/settings.h"
#include "config/settings_file.h"
#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "platform/test_access.h"
#include "render/composition.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

inline std::ostream& operator<<(std::ostream& stream, const RECT& rect) {
    return stream << rect.left << "," << rect.top << " " << rect.right << "," << rect.bottom;
}

inline constexpr COLORREF paper = 0x000000;
inline constexpr COLORREF barColor = 0x00FF00;    // of the selected game
inline constexpr COLORREF statusColor = 0xFF0000; // of the status bar: blue

class FrameTest : public ::testing::Test {
protected:
    void SetUp() override {
        char empty[] = "missing.ini";
        iniPath = empty;
        loadSettings();
        settings.backgroundColor = paper;
        settings.fontColor = 0xFFFFFF;
        settings.highlightBackColor = barColor;
        settings.statusBarBackColor = statusColor;
        settings.statusBarForeColor = 0xFFFFFF;
        dc = CreateCompatibleDC(nullptr);
        scratchDC = CreateCompatibleDC(nullptr);
        setGames(25);
        resizeFrame(640, 480);
    }
    void TearDown() override {
        DeleteDC(dc);
        DeleteObject(bitmap);
        DeleteDC(scratchDC);
        DeleteObject(scratchBitmap);
        freeSettings();
        visibleGames = nullptr;
        visibleCount = 0;
    }

    void resizeFrame(int newWidth, int newHeight) {
        width = newWidth;
        height = newHeight;
        bitmap = CreateCompatibleBitmap(dc, width, height);
        DeleteObject(SelectObject(dc, bitmap));
        scratchBitmap = CreateCompatibleBitmap(dc, width, height);
        DeleteObject(SelectObject(scratchDC, scratchBitmap));
        ++viewGeneration;
    }

    void setGames(std::size_t count) {
        records.assign(count, GameRecord{});
        pointers.clear();
        names.clear();
        for (GameRecord& record : records) {
            names.push_back("g" + std::to_string(names.size()));
            record.description = title.data();
            record.manufacturer = maker.data();
            record.year = 1985;
            record.video = &video;
            record.input = &input;
            pointers.push_back(&record);
        }
        for (std::size_t game = 0; game < count; ++game) {
            records[game].name = names[game].data();
        }
        visibleGames = pointers.data();
        visibleCount = static_cast<std::int32_t>(count);
    }

    void draw() { drawScreen(dc, bitmap); }

    std::uint32_t pixelAt(int x, int y) const { return pixelRow(dc, y)[x]; }

    // Returns the bounding rectangle of all pixels of a colour; with right and bottom 0 when there is none.
    RECT extentOf(COLORREF color) const {
        RECT extent{width, height, 0, 0};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (pixelAt(x, y) == pixelOfColor(color)) {
                    extent = {std::min(extent.left, x), std::min(extent.top, y),
                              std::max(extent.right, x + 1), std::max(extent.bottom, y + 1)};
                }
            }
        }
        return extent;
    }

    std::string title = "Title of a game";
    std::string maker = "Maker";
    char raster[7] = "raster";
    VideoInfo video{raster, orientationHorizontal, 320, 240};
    InputInfo input{2, 2, 1, controlJoy8Way};
    TemporaryFolder folder;
    std::vector<std::string> names;
    std::vector<GameRecord> records;
    std::vector<GameRecord*> pointers;
    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
    int width = 0;
    int height = 0;
};

inline bool contains(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}
