// SPDX-License-Identifier: GPL-3.0-or-later
#include "generated_movie.h"

#include "avi_writer.h"
#include "sounds.h"

#include <cstdint>
#include <vector>

std::string generatedMovie(int width, int height, int framesPerSecond, int seconds) {
    AviWriter writer({width, height, framesPerSecond, soundRate});
    for (int number = 0; number < framesPerSecond * seconds; ++number) {
        std::vector<std::uint32_t> pixels;
        for (int index = 0; index < width * height; ++index) {
            const int x = index % width + 3 * number;
            const int y = index / width + 2 * number;
            pixels.push_back(
                static_cast<std::uint32_t>(((x & 0xFF) << 16) | ((y & 0xFF) << 8) | ((x ^ y) & 0x7F)));
        }
        writer.addPicture(pixels);
        writer.addSound(play({{0, 1.0 / framesPerSecond, 440, 0, 0.3, 0}}, 1.0 / framesPerSecond));
    }
    return writer.content();
}
