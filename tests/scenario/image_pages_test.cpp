// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/settings.h"
#include "render/page.h"
#include "render/primitives.h"
#include "support/front_end.h"
#include "support/png_files.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t background = 0xFFFFFF;

// The image browser with pictures of uniform gray: a marquee for each game, and every kind of picture for
// g000.
class ImagePagesTest : public ::testing::Test {
protected:
    void SetUp() override {
        frontEnd.writeGames(20);
        frontEnd.set("Settings", "MenuType", "ImageBrowser");
        frontEnd.set("Settings", "PreviewPictures", "Cabinets");
        const struct {
            const char* key;
            const char* directory;
            int gray;
        } kinds[] = {{"Cabinet.dir", "cabinets", 10},
                     {"Snapshot.dir", "snaps", 11},
                     {"Flyer.dir", "flyers", 12},
                     {"Title.dir", "titles", 13}};
        for (const auto& kind : kinds) {
            frontEnd.set("Settings", kind.key, kind.directory);
            std::filesystem::create_directory(kind.directory);
            addArt(std::string(kind.directory) + "/g000", kind.gray);
        }
        frontEnd.set("Settings", "Marquee.dir", "marquees");
        std::filesystem::create_directory("marquees");
        for (int game = 0; game < 20; ++game) {
            addArt("marquees/g" + std::to_string(1000 + game).substr(1), marqueeOf(game));
        }
    }

    static int marqueeOf(int game) { return 40 + game; }

    void addArt(const std::string& path, int gray) const {
        PngForm form;
        form.colorType = PNG_COLOR_TYPE_PALETTE;
        form.evenColor = gray;
        frontEnd.folder().write(path + ".png", pngBytes(form));
    }

    static std::uint32_t gray(int level) { return static_cast<std::uint32_t>(level) * 0x010101U; }

    // The pixel in the middle of a tile, without rotation.
    static std::uint32_t tilePixel(int position) {
        const int pitch = settings.previewModeHeight + settings.previewModeSpacer;
        return FrontEnd::pixel(160, settings.previewModeSpacer + position * pitch +
                                        settings.previewModeHeight / 2);
    }

    static int tilesOfPage() {
        int tiles = 0;
        for (; topIndex + tiles < visibleCount && tiles < 5; ++tiles) {
            if (tilePixel(tiles) != gray(marqueeOf(topIndex + tiles))) {
                break;
            }
        }
        return tiles;
    }

    FrontEnd frontEnd;
};

TEST_F(ImagePagesTest, ReadsAPageOfTilesWhenItIsEntered) {
    static int page = 0;
    frontEnd.at(140, [] { page = tilesOfPage(); });
    frontEnd.at(145, [this] {
        ASSERT_GE(page, 3);
        std::filesystem::remove_all("marquees");
    });
    frontEnd.tap(150, SDL_SCANCODE_DOWN);
    frontEnd.at(240, [] {
        EXPECT_EQ(selectedIndex, 1);
        EXPECT_EQ(tilesOfPage(), page) << "the page does not read its files again";
    });
    frontEnd.tap(250, SDL_SCANCODE_RIGHT);
    frontEnd.tap(350, SDL_SCANCODE_RIGHT);
    frontEnd.at(440, [] {
        EXPECT_GT(topIndex, 0);
        EXPECT_EQ(tilePixel(0), background) << "the files of the next page are missing";
    });
    frontEnd.run(600);
}

TEST_F(ImagePagesTest, CyclesTheKindsOfPicturesBelowTheCabinet) {
    const int grays[] = {10, 11, 12, 13, 10};
    std::int64_t time = 140;
    for (const int expected : grays) {
        frontEnd.at(time, [expected] {
            EXPECT_EQ(FrontEnd::pixel(490, 120), gray(10)) << "the upper picture is always the cabinet";
            EXPECT_EQ(FrontEnd::pixel(490, 340), gray(expected));
        });
        frontEnd.tap(time + 10, SDL_SCANCODE_LSHIFT);
        time += 100;
    }
    frontEnd.run(time + 200);
}

TEST_F(ImagePagesTest, AMoveOfPlayerTwoRotatesTheWholePage) {
    frontEnd.set("Settings", "InvertPlayer2Screen", "1");
    frontEnd.tap(150, SDL_SCANCODE_F);
    frontEnd.at(290, [] {
        ASSERT_EQ(settings.orientation, 180);
        // Upside down, the first tile is at the bottom right.
        const int first = 480 - settings.previewModeSpacer - settings.previewModeHeight / 2;
        EXPECT_EQ(FrontEnd::pixel(480, first), gray(marqueeOf(0)));
        EXPECT_EQ(FrontEnd::pixel(80, first), background) << "g001 has no pictures";
    });
    frontEnd.tap(350, SDL_SCANCODE_UP);
    frontEnd.at(490, [] {
        EXPECT_EQ(settings.orientation, 0);
        EXPECT_EQ(tilePixel(0), gray(marqueeOf(0)));
        EXPECT_EQ(FrontEnd::pixel(490, 120), gray(10));
    });
    frontEnd.run(600);
}

TEST_F(ImagePagesTest, ASortRebuildsThePage) {
    std::string list;
    for (int game = 0; game < 20; ++game) {
        const std::string name = "g" + std::to_string(1000 + game).substr(1);
        std::string entry = FrontEnd::listEntry(name);
        list += entry.replace(entry.find("1985"), 4, std::to_string(1999 - game));
    }
    frontEnd.folder().write("listinfo.dat", list);
    frontEnd.tap(150, SDL_SCANCODE_Z);
    frontEnd.at(290, [] {
        ASSERT_EQ(settings.sortBy, sortByYear);
        EXPECT_EQ(tilePixel(0), gray(marqueeOf(19 - topIndex))) << "the oldest game is the last of the list";
    });
    frontEnd.run(400);
}

} // namespace
