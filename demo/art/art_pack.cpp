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

constexpr Size MarqueeSize{800, 240};
constexpr Size CabinetSize{440, 660};
constexpr Size FlyerSize{600, 800};
constexpr Size LargeFlyerSize{1200, 1600};
constexpr unsigned MostThreads = 4;

// The games of the tour have everything; a sheet as large as a scanner gives it is among them.
constexpr std::string_view Complete[] = {"barnacle", "ueberkff", "cometwsh", "neonnood", "skypicnc"};
constexpr std::string_view LargeFlyer = "barnacle";
// Its picture files were cut off when the disk was full.
constexpr std::string_view Damaged = "outorder";

enum class ArtKind : std::uint32_t { Marquee, Cabinet, Snapshot, Title, Flyer };

// Every how many games a kind is missing.
constexpr std::uint32_t GapEvery[] = {17, 4, 13, 7, 2};

bool hasArt(const DemoGame& game, const GameLook& look, ArtKind kind) {
    if (game.kind != DemoKind::Game && game.kind != DemoKind::Mechanical)
        return false;
    if (std::ranges::find(Complete, game.name) != std::end(Complete))
        return true;
    // Packs hold one picture for a family, a few clones apart.
    if (!game.cloneOf.empty())
        return kind == ArtKind::Snapshot && game.year.size() == 4 && game.year > "1988";
    if (game.display.type.empty() && (kind == ArtKind::Snapshot || kind == ArtKind::Title))
        return false;
    auto which = static_cast<std::uint32_t>(kind);
    return (look.seed >> (3 * which)) % GapEvery[which] != 0;
}

// A picture appears under its name only when it is whole, so that a run that is cut short leaves no halves.
bool keepPicture(const Picture& picture, const fs::path& path) {
    fs::path unfinished = path.string() + ".part";
    std::error_code error;
    if (!picture.writePng(unfinished.string()))
        return false;
    fs::rename(unfinished, path, error);
    return !error;
}

bool cutInHalf(const fs::path& path) {
    std::error_code error;
    std::uintmax_t size = fs::file_size(path, error);
    if (!error)
        fs::resize_file(path, size / 2, error);
    return !error;
}

// The pictures of one game. The photographs of the tube and the cabinet are made when the first asks for
// them.
class GameArt {
public:
    GameArt(const fs::path& artFolder, const DemoGame& shownGame)
        : folder(artFolder), game(shownGame), look(lookOf(shownGame)) {}

    bool write() {
        return keep(ArtKind::Marquee, "marquees", [&] { return marquee(); }) &&
               keep(ArtKind::Snapshot, "snap", [&] { return snapshotOf(game, 12); }) &&
               keep(ArtKind::Title, "titles", [&] { return titleScreenOf(game, look); }) &&
               keep(ArtKind::Cabinet, "cabinets", [&] { return cabinet(); }) &&
               keep(ArtKind::Flyer, "flyers", [&] { return flyer(); });
    }

private:
    bool keep(ArtKind kind, const char* directory, const std::function<Picture()>& paint) {
        fs::path path = folder / directory / (std::string(game.name) + ".png");
        std::error_code error;
        if (!hasArt(game, look, kind) || fs::exists(path, error))
            return true;
        if (!keepPicture(paint(), path))
            return false;
        return game.name != Damaged || kind == ArtKind::Snapshot || cutInHalf(path);
    }

    Picture marquee() const {
        Picture picture(MarqueeSize.width, MarqueeSize.height);
        paintMarquee(picture.context(), look, MarqueeSize.width, MarqueeSize.height);
        return picture;
    }

    Picture cabinet() const {
        Picture picture(CabinetSize.width, CabinetSize.height);
        paintCabinet(picture.context(), game, look, snapshotOf(game, 12), CabinetSize.width,
                     CabinetSize.height);
        return picture;
    }

    Picture flyer() const {
        Size size = game.name == LargeFlyer ? LargeFlyerSize : FlyerSize;
        Picture play = snapshotOf(game, 12);
        Picture later = snapshotOf(game, 47);
        Picture photo(CabinetSize.width / 2, CabinetSize.height / 2);
        paintCabinet(photo.context(), game, look, play, photo.width(), photo.height());
        Picture picture(size.width, size.height);
        paintFlyer(picture.context(), look, {play, later, photo}, size.width, size.height);
        return picture;
    }

    const fs::path& folder;
    const DemoGame& game;
    GameLook look;
};

// The sign of every game that has none of its own.
bool writeGenericMarquee(const fs::path& folder) {
    constexpr DemoGame Any{"arcade",
                           "Insert Coin",
                           "1980",
                           "",
                           "",
                           "",
                           DemoKind::Game,
                           {"raster", 0, 256, 224},
                           {1, 1, "joy", "8", 1},
                           true,
                           ""};
    fs::path path = folder / "marquees" / "generic.png";
    std::error_code error;
    if (fs::exists(path, error))
        return true;
    Picture picture(MarqueeSize.width, MarqueeSize.height);
    paintMarquee(picture.context(), lookOf(Any), MarqueeSize.width, MarqueeSize.height);
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
            if (!GameArt(path, demoGames()[i]).write())
                whole = false;
        }
    };
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < std::clamp(std::thread::hardware_concurrency(), 1u, MostThreads); ++i)
        workers.emplace_back(work);
    workers.clear();
    // The stores of letters would count as lost memory at the end of the program.
    cairo_debug_reset_static_data();
    FcFini();
    if (!whole)
        problem = "cannot write the pictures in " + folder;
    return whole;
}
