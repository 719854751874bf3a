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

constexpr int FramesPerSecond = 20;
constexpr int Seconds = 4;

// One in so many originals has a movie, and this one's is damaged.
constexpr int MovieEvery = 3;
constexpr int DamagedMovie = 6;

using Picture = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

AviFormat formatOf(const DemoGame& game) {
    const bool portrait = game.display.portrait();
    return {portrait ? 240 : 320, portrait ? 320 : 240, FramesPerSecond, SoundRate};
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

// A tune of the game's own: eight notes a movie, drawn from its name.
Samples tuneOf(const DemoGame& game) {
    constexpr int Scale[] = {-12, -9, -7, -5, -2, 0, 3, 5};
    const std::uint32_t seed = seedOfName(game.name);
    std::vector<Note> notes;
    for (std::uint32_t i = 0; i < 16; ++i) {
        const double pitch = 330 * std::exp2(Scale[mixed(seed, i) % 8] / 12.0);
        notes.push_back({i * 0.25, 0.22, pitch, 0, 0.2, 0.7});
    }
    return play(notes, Seconds);
}

std::string movieOf(const DemoGame& game) {
    const AviFormat format = formatOf(game);
    const Samples tune = tuneOf(game);
    AviWriter writer(format);
    constexpr int Frames = Seconds * FramesPerSecond;
    for (int frame = 0; frame < Frames; ++frame) {
        writer.addPicture(sceneAt(game, format, static_cast<double>(frame) / FramesPerSecond));
        const auto first = static_cast<std::ptrdiff_t>(tune.size()) * frame / Frames;
        const auto last = static_cast<std::ptrdiff_t>(tune.size()) * (frame + 1) / Frames;
        writer.addSound(Samples(tune.begin() + first, tune.begin() + last));
    }
    return writer.content();
}

std::string damaged(std::string movie) {
    constexpr std::size_t HeaderEnd = 100;
    std::fill(movie.begin() + HeaderEnd, movie.begin() + static_cast<std::ptrdiff_t>(movie.size() / 2),
              '\x5A');
    return movie.substr(0, movie.size() * 2 / 3);
}

} // namespace

bool layOutMovies(const std::string& folder, std::string& problem) {
    std::error_code error;
    int originals = 0;
    for (const DemoGame& game : demoGames()) {
        if (game.kind != DemoKind::Game || !game.romPresent || !game.cloneOf.empty())
            continue;
        const int number = originals++;
        const std::string path = folder + "/" + std::string(game.name) + ".avi";
        if (number % MovieEvery != 0 || std::filesystem::exists(path, error))
            continue;
        const std::string movie = movieOf(game);
        if (!writeTextFile(path, number == DamagedMovie ? damaged(movie) : movie, problem))
            return false;
    }
    return true;
}
