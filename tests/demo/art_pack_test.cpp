// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/art_pack.h"

#include "games.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Width and height of the picture, both 0 if it cannot be decoded completely.
std::pair<unsigned, unsigned> sizeOf(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return {};
    }
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> pixels(PNG_IMAGE_SIZE(image));
    const bool whole = png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
    return whole ? std::pair{image.width, image.height} : std::pair{0U, 0U};
}

TEST(ArtPackTest, WritesMissingPicturesAndOneDamagedFile) {
    const TemporaryFolder folder;
    const char* const directories[] = {"marquees", "cabinets", "snap", "titles", "flyers"};
    int placeholders = 0;
    for (const char* directory : directories) {
        fs::create_directory(directory);
        for (const DemoGame& game : demoGames()) {
            if (game.name != "barnacle" && game.name != "outorder") {
                folder.write(std::string(directory) + "/" + std::string(game.name) + ".png", "mine");
                ++placeholders;
            }
        }
    }
    std::string problem;
    ASSERT_TRUE(writeArtPack(".", problem)) << problem;
    // A display of 288 by 224 that is rotated by 90 degrees.
    EXPECT_EQ(sizeOf("snap/barnacle.png"), (std::pair{224U, 288U}));
    EXPECT_EQ(sizeOf("titles/barnacle.png"), (std::pair{224U, 288U}));
    for (const char* path :
         {"marquees/barnacle.png", "marquees/generic.png", "cabinets/barnacle.png", "flyers/barnacle.png"}) {
        EXPECT_GT(sizeOf(path).first, 400U) << path;
    }
    EXPECT_TRUE(folder.has("marquees/outorder.png"));
    EXPECT_EQ(sizeOf("marquees/outorder.png").first, 0U);
    for (const fs::directory_entry& file : fs::recursive_directory_iterator(".")) {
        EXPECT_NE(file.path().extension(), ".part") << file.path();
        placeholders -= file.is_regular_file() && fs::file_size(file) == 4 ? 1 : 0;
    }
    EXPECT_EQ(placeholders, 0) << "an existing file was changed";
}

TEST(ArtPackTest, ReportsAFolderThatItCannotWrite) {
    const TemporaryFolder folder;
    folder.write("flyers", "a file where a folder should be");
    std::string problem;
    EXPECT_FALSE(writeArtPack(".", problem));
    EXPECT_NE(problem.find("flyers"), std::string::npos) << problem;
}

} // namespace
