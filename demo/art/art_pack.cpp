// SPDX-License-Identifier: GPL-3.0-or-later
#include "art/art_pack.h"

#include "art/cabinet_picture.h"
#include "art/flyer.h"
#include "art/marquee.h"
#include "art/screen_shots.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <functional>
#include <system_error>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Size {
    int width;
    int height;
};

constexpr Size marqueeSize{800, 240};
constexpr Size cabinetSize{440, 660};
constexpr Size flyerSize{600, 800};
constexpr Size largeFlyerSize{1200, 1600};
constexpr unsigned mostThreads = 4;

// The games of the tour have all pictures. One flyer has the size of a scan.
constexpr std::string_view completeGames[] = {"barnacle", "ueberkff", "cometwsh", "neonnood", "skypicnc"};
constexpr std::string_view largeFlyerGame = "barnacle";
// The picture files of this game are truncated.
constexpr std::string_view damagedGame = "outorder";

enum class ArtKind : std::uint32_t { marquee, cabinet, snapshot, title, flyer };

// By kind: one game in so many lacks it.
constexpr std::uint32_t gapEvery[] = {17, 4, 13, 7, 2};

bool hasArt(const DemoGame& game, const GameLook& look, ArtKind kind) {
    if (game.kind != DemoKind::game && game.kind != DemoKind::mechanical) {
        return false;
    }
    if (std::ranges::find(completeGames, game.name) != std::end(completeGames)) {
        return true;
    }
    // Most packs have art for originals only, and snapshots of a few clones.
    if (!game.cloneOf.empty()) {
        return kind == ArtKind::snapshot && game.year.size() == 4 && game.year > "1988";
    }
    if (game.display.type.empty() && (kind == ArtKind::snapshot || kind == ArtKind::title)) {
        return false;
    }
    auto which = static_cast<std::uint32_t>(kind);
    return (look.seed >> (3 * which)) % gapEvery[which] != 0;
}

// Writes under a temporary name first, so that an interrupted run leaves no partial picture.
bool keepPicture(const Picture& picture, const fs::path& path) {
    fs::path unfinished = path.string() + ".part";
    std::error_code error;
    if (!picture.writePng(unfinished.string())) {
        return false;
    }
    fs::rename(unfinished, path, error);
    return !error;
}

bool cutInHalf(const fs::path& path) {
    std::error_code error;
    std::uintmax_t size = fs::file_size(path, error);
    if (!error) {
        fs::resize_file(path, size / 2, error);
    }
    return !error;
}

// The pictures of one game.
class GameArt {
public:
    GameArt(const fs::path& artFolder, const DemoGame& shownGame)
        : folder_(artFolder), game_(shownGame), look_(lookOf(shownGame)) {}

    bool write() {
        return keep(ArtKind::marquee, "marquees", [&] { return marquee(); }) &&
               keep(ArtKind::snapshot, "snap", [&] { return snapshotOf(game_, 12); }) &&
               keep(ArtKind::title, "titles", [&] { return titleScreenOf(game_, look_); }) &&
               keep(ArtKind::cabinet, "cabinets", [&] { return cabinet(); }) &&
               keep(ArtKind::flyer, "flyers", [&] { return flyer(); });
    }

private:
    bool keep(ArtKind kind, const char* directory, const std::function<Picture()>& paint) {
        fs::path path = folder_ / directory / (std::string(game_.name) + ".png");
        std::error_code error;
        if (!hasArt(game_, look_, kind) || fs::exists(path, error)) {
            return true;
        }
        if (!keepPicture(paint(), path)) {
            return false;
        }
        return game_.name != damagedGame || kind == ArtKind::snapshot || cutInHalf(path);
    }

    Picture marquee() const {
        Picture picture(marqueeSize.width, marqueeSize.height);
        paintMarquee(picture.context(), look_, marqueeSize.width, marqueeSize.height);
        return picture;
    }

    Picture cabinet() const {
        Picture picture(cabinetSize.width, cabinetSize.height);
        paintCabinet(picture.context(), game_, look_, snapshotOf(game_, 12), cabinetSize.width,
                     cabinetSize.height);
        return picture;
    }

    Picture flyer() const {
        Size size = game_.name == largeFlyerGame ? largeFlyerSize : flyerSize;
        Picture play = snapshotOf(game_, 12);
        Picture later = snapshotOf(game_, 47);
        Picture photo(cabinetSize.width / 2, cabinetSize.height / 2);
        paintCabinet(photo.context(), game_, look_, play, photo.width(), photo.height());
        Picture picture(size.width, size.height);
        paintFlyer(picture.context(), look_, {play, later, photo}, size.width, size.height);
        return picture;
    }

    const fs::path& folder_;
    const DemoGame& game_;
    GameLook look_;
};

// The marquee that stands in for a missing one.
bool writeGenericMarquee(const fs::path& folder) {
    constexpr DemoGame any{"arcade",
                           "Insert Coin",
                           "1980",
                           "",
                           "",
                           "",
                           DemoKind::game,
                           {"raster", 0, 256, 224},
                           {1, 1, "joy", "8", 1},
                           true,
                           ""};
    fs::path path = folder / "marquees" / "generic.png";
    std::error_code error;
    if (fs::exists(path, error)) {
        return true;
    }
    Picture picture(marqueeSize.width, marqueeSize.height);
    paintMarquee(picture.context(), lookOf(any), marqueeSize.width, marqueeSize.height);
    return keepPicture(picture, path);
}

} // namespace

bool writeArtPack(const std::string& folder, std::string& problem) {
    fs::path path(folder);
    std::error_code error;
    for (const char* directory : {"marquees", "cabinets", "snap", "titles", "flyers"}) {
        fs::create_directories(path / directory, error);
        if (error) {
            problem = "cannot make the folder " + (path / directory).string() + ": " + error.message();
            return false;
        }
    }
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> whole = writeGenericMarquee(path);
    auto work = [&] {
        for (std::size_t i = next++; i < demoGames().size() && whole; i = next++) {
            if (!GameArt(path, demoGames()[i]).write()) {
                whole = false;
            }
        }
    };
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < std::clamp(std::thread::hardware_concurrency(), 1u, mostThreads); ++i) {
        workers.emplace_back(work);
    }
    workers.clear();
    // Otherwise the caches of fontconfig and cairo count as leaks at the end of the program.
    cairo_debug_reset_static_data();
    FcFini();
    if (!whole) {
        problem = "cannot write the pictures in " + folder;
    }
    return whole;
}
