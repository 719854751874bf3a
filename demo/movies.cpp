// SPDX-License-Identifier: GPL-3.0-or-later
#include "movies.h"

#include "avi_writer.h"
#include "cabinet.h"
#include "games.h"
#include "sounds.h"
#include "standin/pixel_canvas.h"
#include "standin/scene.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <system_error>

namespace {

constexpr int framesPerSecond = 20;
constexpr int movieSeconds = 4;

// Every third original (no clone) has a movie; that of the original with this index is damaged.
constexpr int movieEvery = 3;
constexpr int damagedMovie = 6;

using Picture = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

AviFormat formatOf(const DemoGame& game) {
    const bool portrait = game.display.portrait();
    return {portrait ? 240 : 320, portrait ? 320 : 240, framesPerSecond, soundRate};
}

std::vector<std::uint32_t> sceneAt(const DemoGame& game, const AviFormat& format, double seconds) {
    Picture picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24, format.width, format.height),
                    &cairo_surface_destroy);
    cairo_t* context = cairo_create(picture.get());
    const double turn = seconds * 1.57;
    drawScene(context, game, {seconds, std::sin(turn), std::cos(turn)}, format.width, format.height);
    cairo_destroy(context);
    cairo_surface_flush(picture.get());
    std::vector<std::uint32_t> pixels;
    const unsigned char* data = cairo_image_surface_get_data(picture.get());
    const int stride = cairo_image_surface_get_stride(picture.get());
    for (int y = 0; y < format.height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
        pixels.insert(pixels.end(), row, row + format.width);
    }
    return pixels;
}

// A tune of sixteen notes that depends on the game's name.
Samples tuneOf(const DemoGame& game) {
    constexpr int scale[] = {-12, -9, -7, -5, -2, 0, 3, 5};
    const std::uint32_t seed = seedOfName(game.name);
    std::vector<Note> notes;
    for (std::uint32_t i = 0; i < 16; ++i) {
        const double pitch = 330 * std::exp2(scale[mixed(seed, i) % 8] / 12.0);
        notes.push_back({i * 0.25, 0.22, pitch, 0, 0.2, 0.7});
    }
    return play(notes, movieSeconds);
}

std::string movieOf(const DemoGame& game) {
    const AviFormat format = formatOf(game);
    const Samples tune = tuneOf(game);
    AviWriter writer(format);
    constexpr int frames = movieSeconds * framesPerSecond;
    for (int frame = 0; frame < frames; ++frame) {
        writer.addPicture(sceneAt(game, format, static_cast<double>(frame) / framesPerSecond));
        const auto first = static_cast<std::ptrdiff_t>(tune.size()) * frame / frames;
        const auto last = static_cast<std::ptrdiff_t>(tune.size()) * (frame + 1) / frames;
        writer.addSound(Samples(tune.begin() + first, tune.begin() + last));
    }
    return writer.content();
}

std::string damaged(std::string movie) {
    constexpr std::size_t headerEnd = 100;
    std::fill(movie.begin() + headerEnd, movie.begin() + static_cast<std::ptrdiff_t>(movie.size() / 2),
              '\x5A');
    return movie.substr(0, movie.size() * 2 / 3);
}

} // namespace

bool layOutMovies(const std::string& folder, std::string& problem) {
    std::error_code error;
    int originals = 0;
    for (const DemoGame& game : demoGames()) {
        if (game.kind != DemoKind::game || !game.romPresent || !game.cloneOf.empty()) {
            continue;
        }
        const int number = originals++;
        const std::string path = folder + "/" + std::string(game.name) + ".avi";
        if (number % movieEvery != 0 || std::filesystem::exists(path, error)) {
            continue;
        }
        const std::string movie = movieOf(game);
        if (!writeTextFile(path, number == damagedMovie ? damaged(movie) : movie, problem)) {
            return false;
        }
    }
    return true;
}
