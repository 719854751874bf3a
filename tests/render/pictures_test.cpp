// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/pictures.h"

#include "config/settings.h"
#include "config/settings_file.h"
#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "platform/memory.h"
#include "platform/test_access.h"
#include "render/picture_turn.h"
#include "support/png_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr COLORREF paper = 0xFE01FE;

// A frame, the five art folders, and a clone whose parent is "parent".
class PicturesTest : public ::testing::Test {
protected:
    void SetUp() override {
        iniPath = "missing.ini";
        loadSettings();
        char** const directories[] = {&settings.marqueeDir, &settings.cabinetDir, &settings.snapshotDir,
                                      &settings.flyerDir, &settings.titleDir};
        const char* const names[] = {"marquee", "cabinet", "snap", "flyer", "title"};
        for (std::size_t i = 0; i < std::size(names); ++i) {
            std::filesystem::create_directory(names[i]);
            std::free(*directories[i]);
            *directories[i] = strdup(names[i]);
        }
        game.name = name;
        game.cloneOf = parent;
        dc = CreateCompatibleDC(nullptr);
        bitmap = CreateCompatibleBitmap(dc, 400, 300);
        SelectObject(dc, bitmap);
    }
    void TearDown() override {
        DeleteDC(dc);
        DeleteObject(bitmap);
        freeSettings();
    }

    // Writes a picture of one gray level.
    void addArt(const std::string& path, int gray, int width = 4, int height = 4) const {
        PngForm form{PNG_COLOR_TYPE_PALETTE, 8};
        form.width = width;
        form.height = height;
        form.evenColor = gray;
        folder.write(path, pngBytes(form));
    }

    void clear() const { std::fill_n(pixelRow(dc, 0), 400 * 300, pixelOfColor(paper)); }

    // The bounding rectangle of everything drawn.
    RECT drawn() const {
        RECT extent{400, 300, 0, 0};
        for (int i = 0; i < 400 * 300; ++i) {
            if (pixelRow(dc, 0)[i] != pixelOfColor(paper)) {
                extent = {std::min(extent.left, i % 400), std::min(extent.top, i / 400),
                          std::max(extent.right, i % 400 + 1), std::max(extent.bottom, i / 400 + 1)};
            }
        }
        return extent;
    }

    static void expectRect(const RECT& rect, const RECT& wanted) {
        EXPECT_EQ(rect.left, wanted.left);
        EXPECT_EQ(rect.top, wanted.top);
        EXPECT_EQ(rect.right, wanted.right);
        EXPECT_EQ(rect.bottom, wanted.bottom);
    }

    TemporaryFolder folder;
    char name[6] = "clone";
    char parent[7] = "parent";
    GameRecord game{};
    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
};

} // namespace

// Each file is taken away after it was found, so that the search falls through to the next.
TEST_F(PicturesTest, SearchOrder) {
    const std::vector<std::string> marquees = {"marquee/clone.png", "marquee/parent.png",
                                               "marquee/generic.png"};
    const std::vector<std::string> previews = {"title/clone.png",    "title/parent.png", "cabinet/clone.png",
                                               "cabinet/parent.png", "snap/clone.png",   "snap/parent.png",
                                               "flyer/clone.png",    "flyer/parent.png"};
    const RECT place{100, 100, 200, 200};
    for (const auto& [files, fallback] : {std::pair(marquees, 0), {previews, 1}, {previews, 0}}) {
        const bool preview = files == previews;
        for (std::size_t i = 0; i < files.size(); ++i) {
            addArt(files[i], static_cast<int>(10 + i));
        }
        for (std::size_t i = 0; i <= files.size(); ++i) {
            clear();
            EXPECT_EQ(preview ? drawPreviewPicture(dc, &game, &place, settings.titleDir, fallback, {})
                              : drawMarqueeTile(dc, &game, &place),
                      1);
            const bool found = i < files.size() && (!preview || fallback == 1 || i < 2);
            const auto wanted = static_cast<std::uint32_t>(0x010101 * (10 + i));
            EXPECT_EQ(pixelRow(dc, 150)[150], found ? wanted : pixelOfColor(paper)) << i << ' ' << fallback;
            std::filesystem::remove(i < files.size() ? files[i] : "");
        }
    }
    game.cloneOf = nullptr;
    addArt("marquee/parent.png", 77);
    char outside[] = "../marquee/parent";
    char* const parents[] = {nullptr, outside};
    for (char* other : parents) {
        game.cloneOf = other;
        clear();
        drawMarqueeTile(dc, &game, &place);
        EXPECT_EQ(pixelRow(dc, 150)[150], pixelOfColor(paper)) << other;
    }
}

TEST_F(PicturesTest, DrawsNothingForUnusableFiles) {
    folder.write("marquee/clone.png", "no picture");
    std::filesystem::create_directory("title/clone.png");
    const RECT place{100, 100, 200, 200};
    const std::size_t objects = drawingObjectCount();
    for (const int rotation : {0, 90}) {
        settings.orientation = rotation;
        clear();
        EXPECT_EQ(drawMarqueeBanner(dc, &game, &place), 0);
        EXPECT_EQ(drawMarqueeTile(dc, &game, &place), 0);
        EXPECT_EQ(drawPreviewPicture(dc, &game, &place, settings.titleDir, 0, {}), 0);
        expectRect(drawn(), {400, 300, 0, 0});
    }
    EXPECT_EQ(drawingObjectCount(), objects);
}

TEST_F(PicturesTest, TurnsEveryPixel) {
    for (const int depth : {1, 4, 8, 24}) {
        for (const int rotation : {0, 90, -90, 180}) {
            for (const SIZE size : {SIZE{1, 1}, SIZE{1, 37}, SIZE{70, 35}, SIZE{33, 1}}) {
                SCOPED_TRACE(::testing::Message() << depth << " bits turned " << rotation << ", " << size.cx);
                PngForm form{depth == 24 ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_GRAY, depth == 24 ? 8 : depth};
                form.width = size.cx;
                form.height = size.cy;
                const std::string path = folder.write("turn.png", pngBytes(form));
                PngDibParams picture{};
                picture.size = pngDibParamsSize;
                picture.fileName = path.c_str();
                ASSERT_EQ(pngToDib(&picture), pngDibSuccess);
                BYTE* decoded = picture.pixels;
                settings.orientation = rotation;
                rotateDib(&picture);
                const auto& header = *static_cast<BITMAPINFOHEADER*>(picture.dib);
                const bool quarter = rotation == 90 || rotation == -90;
                ASSERT_EQ(header.biWidth, quarter ? size.cy : size.cx);
                ASSERT_EQ(header.biHeight, quarter ? size.cx : size.cy);
                const int stride = (header.biWidth * depth + 31) / 32 * 4;
                ASSERT_EQ(header.biSizeImage, static_cast<DWORD>(stride * header.biHeight));
                for (int i = 0; i < size.cx * size.cy; ++i) {
                    std::int32_t x = i % size.cx;
                    std::int32_t y = i / size.cx;
                    const unsigned wanted = sampleAt(form, x, y, 0); // red in 24 bits
                    if (rotation == 90 || rotation == 180) {
                        x = rotation == 90 ? size.cy - 1 - i / size.cx : size.cx - 1 - x;
                        y = rotation == 90 ? i % size.cx : size.cy - 1 - y;
                    } else if (rotation == -90) {
                        x = i / size.cx;
                        y = size.cx - 1 - i % size.cx;
                    }
                    const int bit = x * depth + (depth == 24 ? 16 : 0);
                    const BYTE cell = picture.pixels[(header.biHeight - 1 - y) * stride + bit / 8];
                    const int bits = std::min(depth, 8);
                    ASSERT_EQ(cell >> (8 - bits - bit % 8) & ((1 << bits) - 1), static_cast<int>(wanted))
                        << i;
                }
                GlobalFree(picture.pixels == decoded ? nullptr : picture.pixels);
                GlobalFree(picture.dib);
            }
        }
    }
}

// A picture of 35 MB is stretched before it is turned. The order may only affect the rounding.
TEST_F(PicturesTest, TurnsLargePicturesLikeOthers) {
    PngForm form;
    form.width = form.height = 3400;
    form.grain = 50;
    folder.write("marquee/clone.png", pngBytes(form));
    const int width = 120;
    const int height = 70;
    settings.orientation = 0;
    const RECT tile{0, 0, width, height};
    drawMarqueeTile(dc, &game, &tile);
    std::vector<std::uint32_t> upright;
    for (int i = 0; i < width * height; ++i) {
        upright.push_back(pixelRow(dc, i / width)[i % width]);
    }
    for (const int rotation : {90, -90, 180}) {
        settings.orientation = rotation;
        const RECT place{0, 0, rotation == 180 ? width : height, rotation == 180 ? height : width};
        clear();
        EXPECT_EQ(drawMarqueeTile(dc, &game, &place), 1);
        expectRect(drawn(), place);
        for (int i = 0; i < width * height; ++i) {
            const int x = rotation == 180  ? width - 1 - i % width
                          : rotation == 90 ? height - 1 - i / width
                                           : i / width;
            const int y = rotation == 180  ? height - 1 - i / width
                          : rotation == 90 ? i % width
                                           : width - 1 - i % width;
            ASSERT_EQ(pixelRow(dc, y)[x], upright[static_cast<std::size_t>(i)]) << rotation << ", " << i;
        }
    }
    settings.orientation = 90;
    const RECT area{100, 100, 300, 200};
    folder.write("snap/clone.png", folder.read("marquee/clone.png"));
    clear();
    const RECT centre = rectAsRead({0, 0, 400, 300}, {200, 150, 200, 150});
    const PicturePlacement inTheMiddle{{0, 0, 400, 300}, {centre.left, centre.top}, {0, 0, 400, 400}};
    EXPECT_EQ(drawPreviewPicture(dc, &game, &area, settings.snapshotDir, 0, inTheMiddle), 1);
    expectRect(drawn(), {150, 100, 250, 200});
}

TEST_F(PicturesTest, FillsTheRectanglesOfBannerAndTile) {
    addArt("marquee/clone.png", 50, 30, 20);
    for (const int rotation : {0, 90, -90, 180}) {
        settings.orientation = rotation;
        const RECT area{0, 15, 380, 290};
        clear();
        drawMarqueeBanner(dc, &game, &area);
        expectRect(drawn(), {0, 0, 380, 125});
        clear();
        drawMarqueeTile(dc, &game, &area);
        expectRect(drawn(), area);
    }
}

TEST_F(PicturesTest, KeepsTheAspectRatioOfPreviews) {
    struct Case {
        int rotation;
        SIZE size;
        RECT wanted;
    };
    const Case cases[] = {
        {0, {80, 40}, {215, 177, 400, 272}},   // limited by the width; clipped at the edge of the frame
        {0, {40, 80}, {272, 150, 347, 300}},   // limited by the height
        {0, {190, 150}, {215, 150, 400, 300}}, // limited by both
        {90, {80, 40}, {262, 150, 337, 300}},  // turned, centred on a point
        {-90, {40, 80}, {205, 177, 395, 272}}, {180, {80, 40}, {205, 177, 395, 272}},
    };
    const RECT quarter{200, 150, 400, 300};
    for (const Case& one : cases) {
        settings.orientation = one.rotation;
        const RECT centre = rectAsRead({0, 0, 400, 300}, {300, 225, 300, 225});
        const PicturePlacement placement{{0, 0, 400, 300}, {centre.left, centre.top}, {0, 0, 400, 400}};
        addArt("flyer/clone.png", 50, one.size.cx, one.size.cy);
        clear();
        EXPECT_EQ(drawPreviewPicture(dc, &game, &quarter, settings.flyerDir, 0, placement), 1);
        expectRect(drawn(), one.wanted);
    }
}

TEST_F(PicturesTest, SelectsTheDirectoryOfPreviews) {
    const char* const wanted[] = {"cabinet", "snap", "flyer", "title", "flyer"};
    for (std::int32_t choice = 0; choice < 5; ++choice) {
        settings.previewPictures = choice;
        EXPECT_STREQ(previewDirectory(), wanted[choice]);
    }
}
